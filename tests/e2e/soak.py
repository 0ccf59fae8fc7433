#!/usr/bin/python3
"""soak.py TOVARIN TOVARIN_REPORT: the real app on a private X server under random but valid
input for TOVARIN_SOAK_SECONDS (60), its results held against tovarin-report's after every step
(README.md, Reliability). TOVARIN_SOAK_SEED repeats a run. Exit status 77 (skipped): Xvfb, dbus,
python3-xlib or python3-pyatspi missing."""
import os, random, select, shutil, subprocess, sys, tempfile, time

try:
    import pyatspi
    from Xlib import X, XK, display as xdisplay, error as xerror, protocol
    from Xlib.ext import xtest
except ImportError:
    xdisplay = None
if not shutil.which('Xvfb') or not shutil.which('dbus-run-session') or xdisplay is None:
    print('SKIP: Xvfb, dbus, python3-xlib or python3-pyatspi is not installed')
    sys.exit(77)
if 'TOVARIN_SOAK_FOLDER' not in os.environ:  # again, with a bus of its own whose daemons keep their sockets here
    folder = tempfile.mkdtemp()
    os.environ.update(TOVARIN_SOAK_FOLDER=folder, XDG_RUNTIME_DIR=folder)
    status = subprocess.run(['dbus-run-session', '--', sys.executable, *sys.argv], stderr=subprocess.PIPE, text=True)
    print(''.join(line for line in status.stderr.splitlines(True) if 'dbus-daemon' not in line and 'SpiRegistry' not in line), end='', file=sys.stderr)
    shutil.rmtree(folder, ignore_errors=True)
    sys.exit(status.returncode)

app_path, report_tool = sys.argv[1], sys.argv[2]
seconds = float(os.environ.get('TOVARIN_SOAK_SECONDS', '60'))
seed = int(os.environ.get('TOVARIN_SOAK_SEED', random.randrange(1 << 30)))
rng = random.Random(seed)
history, events, probes, slowest = [], 0, 0, 0.0


def fail(message):
    if app.poll() is None:
        app.kill()
    print(app.stderr.read() if app.stderr else '', file=sys.stderr)
    sys.exit(f'FAIL (TOVARIN_SOAK_SEED={seed}) after {" | ".join(history[-8:])}: {message}')


def wait_for(what, find, timeout=10):
    deadline = time.monotonic() + timeout
    while not (found := find()):
        if app.poll() is not None:
            fail(f'the app ended with status {app.returncode} while waiting for {what}')
        if time.monotonic() > deadline:
            fail(f'timed out waiting for {what} (windows: {windows()})')
        time.sleep(0.01)
    return found


# The X server, spoken to directly: its windows, input through XTEST, and what a window manager sends.
def windows():
    """The app's visible windows: id -> (width, height, title)."""
    found = {}
    for window in root.query_tree().children:
        try:
            pid = window.get_full_property(atom('_NET_WM_PID'), X.AnyPropertyType)
            if not pid or pid.value[0] != app.pid or window.get_attributes().map_state != X.IsViewable:
                continue
            title = window.get_full_property(atom('_NET_WM_NAME'), 0)
            geometry = window.get_geometry()
            found[window.id] = (geometry.width, geometry.height, title.value.decode() if title else '')
        except (xerror.BadWindow, xerror.BadDrawable):  # gone meanwhile
            continue
    return found


def titled(title):
    return next((w for w, (_, _, t) in windows().items() if t == title), None)


def others(menus):
    """The app's windows other than the main and the Information window: menus, which Qt places itself
    over any window manager, or else dialogs and message boxes. Neither is a tooltip or a completion
    list: those are placed by Qt too, and may still be on show for a moment after their window has gone."""
    for w, (_, _, title) in windows().items():
        try:
            window = server.create_resource_object('window', w)
            placed_by_qt = window.get_attributes().override_redirect
            kind = window.get_full_property(atom('_NET_WM_WINDOW_TYPE'), X.AnyPropertyType)
        except (xerror.BadWindow, xerror.BadDrawable):
            continue
        tip = kind and {atom('_NET_WM_WINDOW_TYPE_TOOLTIP'), atom('_NET_WM_WINDOW_TYPE_COMBO')} & set(kind.value)
        if w != main and title != 'Info' and bool(placed_by_qt) == menus and not tip:
            return w
    return None


def gone(window):
    return lambda: window not in windows()


def atom(name):
    return server.intern_atom(name)


def press(*keys):
    """Key presses as a keyboard gives them, such as 'a', 'Return', 'ctrl+shift+z'; one character each for text."""
    global events
    for key in keys:
        *modifiers, name = key.split('+') if len(key) > 1 else [key]
        symbol = XK.string_to_keysym(name) or ord(name)  # a Latin-1 keysym is its character's code
        code = server.keysym_to_keycode(symbol)
        held = [{'ctrl': XK.XK_Control_L, 'shift': XK.XK_Shift_L}[m] for m in modifiers]
        if server.keycode_to_keysym(code, 0) != symbol and XK.XK_Shift_L not in held:
            held.append(XK.XK_Shift_L)  # a capital or a symbol on the shifted level
        for symbol_held in held:
            xtest.fake_input(server, X.KeyPress, server.keysym_to_keycode(symbol_held))
        xtest.fake_input(server, X.KeyPress, code)
        xtest.fake_input(server, X.KeyRelease, code)
        for symbol_held in reversed(held):
            xtest.fake_input(server, X.KeyRelease, server.keysym_to_keycode(symbol_held))
        server.sync()
        events += 1


def click(window, left, top):
    """A left click at a point of the window."""
    global events
    at = root.translate_coords(server.create_resource_object('window', window), left, top)
    xtest.fake_input(server, X.MotionNotify, x=at.x, y=at.y)
    xtest.fake_input(server, X.ButtonPress, 1)
    xtest.fake_input(server, X.ButtonRelease, 1)
    server.sync()
    events += 1


def front(window):  # no window manager here: raise and focus by hand, as a click on it would
    target = server.create_resource_object('window', window)
    target.configure(stack_mode=X.Above)
    target.set_input_focus(X.RevertToParent, X.CurrentTime)
    server.sync()


def window_message(window, *data):  # from a window manager: a ping, a close
    target = server.create_resource_object('window', window)
    target.send_event(protocol.event.ClientMessage(window=target, client_type=atom('WM_PROTOCOLS'), data=(
        32, [atom(data[0]), X.CurrentTime, *data[1:], 0, 0, 0][:5])))
    server.flush()


def ping():
    """The main window's answer to _NET_WM_PING, which its event loop gives, modal dialog or not."""
    global probes, slowest
    probes += 1
    start = time.monotonic()
    window_message(main, '_NET_WM_PING', main, probes)
    while (left := start + 1 - time.monotonic()) > 0:
        select.select([server.fileno()], [], [], left)
        while server.pending_events():
            event = server.next_event()
            if event.type == X.ClientMessage and list(event.data[1][2:4]) == [main, probes]:
                slowest = max(slowest, time.monotonic() - start)
                return
    fail('the event loop did not answer a ping within a second')


def normalised(text):  # the time of a run differs by nature
    lines = text.replace('\r\n', '\n').replace('\r', '\n').replace('\u2029', '\n').split('\n')
    return '\n'.join(line for line in lines if not line.startswith('Date: ')).rstrip('\n')


# Data files: good ones, ones that bring a message, and noise that is still valid UTF-8.
folder = os.environ['TOVARIN_SOAK_FOLDER']
files = {'worked.txt': 'NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n', 'two.txt': 'A,100.5\nB,102\n',
         'zero.txt': 'A\t0\nB\t3\n', 'huge.txt': 'A\t1e12\nB\t1e12\nC\t1e12\n', 'empty.txt': '',
         'names.txt': 'Zürich–βeta\t12.5\r\n中文模型名称很长\t11\r\nx\t-3e2\r\n',
         'noise.txt': ''.join(rng.choice('ab\t,.-+e0123456789 \n') for _ in range(400))}
for name, text in files.items():
    with open(os.path.join(folder, name), 'w', encoding='utf-8', newline='') as f:
        f.write(text)
counts = ['', '0', '1', '2', '3', '5', '12', '40', '99']

number = tempfile.TemporaryFile()
xvfb = subprocess.Popen(['Xvfb', '-displayfd', str(number.fileno()), '-noreset', '-nolisten', 'tcp', '-screen', '0',
                         '1280x1024x24'], pass_fds=(number.fileno(),), stderr=subprocess.DEVNULL)
env = {k: v for k, v in os.environ.items() if k not in ('WAYLAND_DISPLAY', 'QT_QPA_PLATFORMTHEME', 'QT_SCALE_FACTOR')}
env.update(QT_QPA_PLATFORM='xcb', QT_LINUX_ACCESSIBILITY_ALWAYS_ON='1')
app = xvfb  # until the app runs, wait_for watches the server
os.environ['DISPLAY'] = env['DISPLAY'] = ':' + wait_for('Xvfb', lambda: number.seek(0) or number.read().decode().strip())
server = xdisplay.Display(env['DISPLAY'])
root = server.screen().root
root.change_attributes(event_mask=X.StructureNotifyMask)  # where the pings come back
app = subprocess.Popen([os.path.abspath(app_path)], env=env, cwd=folder, stderr=subprocess.PIPE, text=True)
try:
    started = time.monotonic()
    splash = wait_for('the splash', lambda: next((w for w, g in windows().items() if g[:2] == (450, 350)), None))
    click(splash, 225, 175)
    main = wait_for('the main window', lambda: titled('Velmoran'))
    bar = windows()[main][1] - 600  # the menu bar's height, above the 700 x 600 content
    # The splash's timer brings the main window to the front once more at 4000 ms; start after it.
    time.sleep(max(0.0, 4.5 - (time.monotonic() - started)))
    count, expected, shown, runs, checks = '', [], False, 0, 0
    desktop = pyatspi.Registry.getDesktop(0)
    program = wait_for('the app on the accessibility bus', lambda: next((a for a in desktop if a and a.name == 'Tovarin'), None))
    frame = wait_for('the main window there', lambda: next((w for w in program if w.name == 'Velmoran'), None))
    results = wait_for('the results there', lambda: next((c for c in frame[0] if c.name == 'Results'), None))

    def check_results():
        """The results area as a screen reader finds it, once the app has handled the input before. The last
        of that input may be handled in the loop of a dialog just closed, before the run goes on: so it may
        take a moment."""
        global checks
        want, deadline = normalised(''.join(expected)), time.monotonic() + 3
        while True:
            ping()
            on_show = results.getState().contains(pyatspi.STATE_SHOWING)
            got = normalised(results.queryText().getText(0, -1))
            if on_show == shown and got == want:
                checks += 1
                return
            if time.monotonic() > deadline:
                break
            time.sleep(0.05)
        if on_show != shown:
            fail('the results area is ' + ('hidden' if shown else 'on show'))
        fail(f'the results differ from the runs since the last Clear or key (windows: {windows()}):\n--- expected\n{want}\n--- shown\n{got}')

    def active(title):  # as the app sees it: its menus enable their items for the active window
        frame = next((w for w in program if w and w.name == title), None)
        return frame is not None and frame.getState().contains(pyatspi.STATE_ACTIVE)

    def open_menu(window, menus_right):
        """File by a click (again if the first is lost, as a person would), then Right to the next menus."""
        front(window)
        title = windows()[window][2]
        wait_for(f'the {title} window active', lambda: active(title))
        for _ in range(3):
            ping()
            click(window, 20, bar // 2)
            deadline = time.monotonic() + 1
            while not others(menus=True) and time.monotonic() < deadline:
                time.sleep(0.01)
            if menu := others(menus=True):
                break
        else:
            fail('three clicks on File opened no menu')
        ping()
        press(*['Right'] * menus_right)
        return menu

    while time.monotonic() - started < 4.5 + seconds:
        step = rng.choices(['count', 'keys', 'run', 'clear', 'info', 'about', 'results'], [3, 2, 6, 1, 1, 1, 2])[0]
        history.append(step)
        if step in ('count', 'keys'):  # any key in the count field empties the results
            front(main)
            click(main, 260, bar + 176)
            if step == 'count':
                count = rng.choice(counts)
                press('ctrl+a', 'BackSpace', *count)
                history[-1] += f' {count!r}'
            else:
                keys = rng.choices(['a', 'Z', 'Left', 'Right', 'Up', 'Tab', 'Return', 'space', 'comma', 'ctrl+s',
                                    'ctrl+o', 'ctrl+shift+z'], k=4)
                history[-1] += ' ' + ' '.join(keys)
                press(*keys)
            expected = []
        elif step == 'run':
            choice = rng.choice([None, *files])
            oracle = subprocess.run([os.path.abspath(report_tool), count, os.path.join(folder, choice or 'worked.txt')],
                                    capture_output=True, text=True)
            front(main)
            click(main, 107, bar + 555)
            if oracle.returncode != 2:  # the count passed: the file dialog
                chooser = wait_for('the file dialog', lambda: others(menus=False))
                front(chooser)
                if choice is None:
                    press('Escape')
                else:  # the dialog opens in the data folder, the app's working folder
                    press('ctrl+a', *choice, 'Return')
                    # A Return that the list of completions takes only completes the name; a person presses again.
                    deadline = time.monotonic() + 3
                    while not gone(chooser)() and time.monotonic() < deadline:
                        time.sleep(0.02)
                    if not gone(chooser)():
                        press('Return')
                wait_for('the file dialog to close', gone(chooser))
            messages = oracle.stderr.splitlines() if choice or oracle.returncode == 2 else []
            history[-1] += f' {choice}: {len(messages)} messages'
            for _ in messages:  # each dismissed with Return, its default button
                box = wait_for('a message box', lambda: others(menus=False))
                front(box)
                press('Return')
                wait_for('the message box to close', gone(box))
            if choice and oracle.returncode == 0:
                expected.append(oracle.stdout)
                shown, runs = True, runs + 1
        elif step == 'clear':
            front(main)
            click(main, 350, bar + 555)
            count, expected, shown = '', [], False
        elif step == 'info':  # the Information window, and back by Window > Control, by the main window or closing
            if rng.random() < 0.5:
                front(main)
                click(main, 604, bar + 556)
            else:
                open_menu(main, 2)
                press('Down', 'Return')  # Window > Information, the one item enabled there
            info = wait_for('the Information window', lambda: titled('Info'))
            leave = rng.choice(['stay', 'control', 'close'])
            history[-1] += ' ' + leave
            if leave == 'control':
                open_menu(info, 2)
                press('Down', 'Return')  # Window > Control
                stacking = lambda: [window.id for window in root.query_tree().children]  # bottom to top
                wait_for('the main window in front', lambda: stacking().index(main) > stacking().index(info))
            elif leave == 'close':
                window_message(info, 'WM_DELETE_WINDOW')
                wait_for('the Information window to close', gone(info))
        elif step == 'about':  # File > About Tovarin, the lower item; a key, a click or closing dismisses it
            menu = open_menu(main, 0)
            width, height, _ = windows()[menu]
            click(menu, width // 2, height * 3 // 4)
            about = wait_for('the About window', lambda: next((w for w, g in windows().items() if g[:2] == (450, 350)), None))
            front(about)
            leave = rng.choice(['key', 'click', 'close'])
            history[-1] += ' ' + leave
            if leave == 'key':
                press(rng.choice(['q', 'Escape', 'space', 'F5']))
            elif leave == 'click':
                click(about, rng.randrange(450), rng.randrange(350))
            else:
                window_message(about, 'WM_DELETE_WINDOW')
            wait_for('the About window to go', gone(about))
        elif step == 'results' and shown:  # refused keys and Undo change nothing the program wrote
            front(main)
            click(main, rng.randrange(60, 620), bar + rng.randrange(200, 500))
            press(*rng.choices(['Left', 'Right', 'Up', 'Down', 'comma', 'parenleft', 'ctrl+z', 'ctrl+z'], k=5))
        ping()
        check_results()
    if rng.random() < 0.5:
        front(main)
        press('ctrl+q')
    else:
        window_message(main, 'WM_DELETE_WINDOW')
    try:
        status = app.wait(timeout=10)
    except subprocess.TimeoutExpired:
        fail('the app still runs 10 s after it was told to quit')
    if status != 0:
        fail(f'the app ended with status {status}:\n{app.stderr.read()}')
    print(f'PASS: {events} input events and {runs} reports in {time.monotonic() - started:.0f} s (seed {seed}); '
          f'{checks} checks of the results; {probes} pings, the slowest answered in {slowest * 1000:.0f} ms')
finally:
    if app.poll() is None:
        app.kill()
    xvfb.kill()
