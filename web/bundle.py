#!/usr/bin/env python3
"""Writes the page's one script: the module's loader (Emscripten's), the module
itself, gzip-compressed and as base64 in one global, and the page's code.
A page opened from disk may not fetch a file of its own, but it may run a
script, and the page inflates the module itself; one script, not three, is
loaded sooner.
   bundle.py LOADER.js MODULE.wasm PAGE.js OUTPUT.js"""
import base64, gzip, sys

loader, module, page, output = sys.argv[1:5]
with open(module, 'rb') as wasm:
    packed = base64.b64encode(gzip.compress(wasm.read(), compresslevel=9, mtime=0)).decode('ascii')
with open(output, 'w', encoding='utf-8') as script:
    with open(loader, encoding='utf-8') as text:
        script.write(text.read().rstrip('\n') + '\n')
    script.write('// The engine (web/WebEngine.cpp) as WebAssembly, gzip-compressed, base64.\n')
    script.write('globalThis.tovarinEngineWasm = "%s";\n' % packed)
    with open(page, encoding='utf-8') as text:
        script.write(text.read())
