#!/usr/bin/env python3
"""Writes the WebAssembly module as a script the page loads: gzip-compressed,
then base64, in one global. A page opened from disk may not fetch a file of
its own, but it may run a script; the page inflates the module itself.
   embed_wasm.py MODULE.wasm OUTPUT.js"""
import base64, gzip, sys

with open(sys.argv[1], 'rb') as module:
    packed = gzip.compress(module.read(), compresslevel=9, mtime=0)
with open(sys.argv[2], 'w', encoding='ascii') as script:
    script.write('// The engine (web/WebEngine.cpp) as WebAssembly, gzip-compressed, base64.\n')
    script.write('globalThis.tovarinEngineWasm = "%s";\n' % base64.b64encode(packed).decode('ascii'))
