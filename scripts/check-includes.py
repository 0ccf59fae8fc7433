#!/usr/bin/env python3
"""Fails when two folders include each other, directly or round a longer loop:
the layers (text, system, engine, framework, ui, app, cli) each build on those below."""
import collections, os, re, subprocess, sys

os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
files = subprocess.run(['git', 'ls-files', '*.cpp', '*.hpp'], capture_output=True, text=True,
                       check=True).stdout.split()
edges = collections.defaultdict(set)
for name in files:
    folder = os.path.dirname(name)
    with open(name, encoding='utf-8') as source:
        for target in re.findall(r'#include "([^"]+)/[^/"]+"', source.read()):
            if target != folder:
                edges[folder].add(target)


def reaches(start, goal):
    seen, todo = set(), [start]
    while todo:
        for step in edges[todo.pop()] - seen:
            if step == goal:
                return True
            seen.add(step)
            todo.append(step)
    return False


loops = sorted({tuple(sorted((a, b))) for a in list(edges) for b in edges[a] if reaches(b, a)})
for a, b in loops:
    print(f'include loop between {a}/ and {b}/', file=sys.stderr)
sys.exit(1 if loops else 0)
