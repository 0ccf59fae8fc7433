#!/usr/bin/python3
"""accessibility.py TOVARIN: the real app as a screen reader meets it, through
AT-SPI on the session bus: the main window comes up by itself, the count field
is named by its caption, Press on 'Information' opens the Information window,
and Press on File > Quit ends the app with status 0."""
import os
import subprocess
import sys
import time

try:
    import pyatspi
except ImportError:
    print('SKIP: python3-pyatspi is not installed')
    sys.exit(77)


def fail(message):
    print('FAIL:', message, file=sys.stderr)
    sys.exit(1)


def wait_for(what, find, seconds=15):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        found = find()
        if found is not None:
            return found
        time.sleep(0.1)
    fail('timed out waiting for ' + what)


def descendants(node, depth=0):
    for child in node:
        if child is not None:
            yield child
            if depth < 12:
                yield from descendants(child, depth + 1)


def one(root, role, name):
    return next((n for n in descendants(root) if n.getRoleName() == role and n.name == name), None)


def press(node):
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    if 'Press' not in names:
        fail(f'{node.getRoleName()} {node.name!r} offers no Press action, only {names}')
    action.doAction(names.index('Press'))


app = subprocess.Popen([sys.argv[1]], env=dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON='1'))
try:
    desktop = pyatspi.Registry.getDesktop(0)
    tovarin = wait_for('the app on the accessibility bus',
                       lambda: next((a for a in desktop if a is not None and a.name == 'Tovarin'), None))
    main = wait_for('the main window', lambda: next((w for w in tovarin if w.name == 'Velmoran'), None))
    count = wait_for('the count field', lambda: one(main, 'text', 'Number of Models (2-99):'))
    labels = [r.getTarget(0).name for r in count.getRelationSet()
              if r.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    if labels != ['Number of Models (2-99):']:
        fail(f'the count field is labelled by {labels}')
    press(one(main, 'push button', 'Information'))
    wait_for('the Information window', lambda: next((w for w in tovarin if w.name == 'Info'), None))
    press(wait_for('File > Quit', lambda: one(main, 'menu item', 'Quit')))
    status = app.wait(timeout=15)
    if status != 0:
        fail(f'the app ended with status {status} after File > Quit')
    print('PASS: the count field is named by its caption; Press opens Information; Quit ends with 0')
finally:
    if app.poll() is None:
        app.kill()
