"""Runs a command with its standard output to a file and prints its wall time
in seconds and its peak resident memory in KiB, as the kernel counted them.
Usage: measure.py OUTPUT COMMAND [ARG...]"""
import os
import subprocess
import sys
import time

output, command = sys.argv[1], sys.argv[2:]
with open(output, 'wb') as out:
    start = time.perf_counter()
    child = subprocess.Popen(command, stdout=out, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    wall = time.perf_counter() - start
code = os.waitstatus_to_exitcode(status)
if code != 0:
    sys.exit('%s ended with status %d' % (command[0], code))
print('%.3f %d' % (wall, usage.ru_maxrss))
