"""tovarin-report from another toolchain (MinGW-w64 under Wine, Emscripten under Node, Clang with
libc++) against the Linux build's: the same standard output, standard error and exit status, byte
for byte, for the classic report (its Date line aside) and every format, on files of every kind
the other tests use, made here. Usage: same_bytes.py LINUX_PROGRAM PROGRAM [RUNNER...]"""
import os, random, subprocess, sys, tempfile

reference, program, runner = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), sys.argv[3:]
rng = random.Random(20261124)
# Wine reads the arguments' bytes in the locale's character set.
env = dict(os.environ, LC_ALL='C.UTF-8')


def bic():
    """A BIC as files write them: decimals, exponents, signs, long digit strings."""
    value = rng.uniform(2400, 2425) if rng.random() < 0.7 else \
        rng.uniform(-50, 5000) * 10 ** rng.choice([0, -3, 3, 12])
    return rng.choice(['%r', '%.2f', '%.6e', '%.3E', '%.17g', '%.0f']) % value


names = ['lm_age_sex', 'Zürich–β', '测试模型', 'a "quoted", name', 'Ωmega;semi', 'x' * 40, 'm\x1aZ']
quoted = lambda name: '"%s"' % name.replace('"', '""')
files = {
    'worked.txt': 'NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n',
    'bom-crlf.csv': '\ufeffmodel,BIC\r\n' + ''.join('%s,%s\r\n' % (quoted(n), bic()) for n in names),
    'cr.tsv': ''.join('%s\t%s\r' % (n, bic()) for n in names if '\t' not in n),
    'Modèle-测试.txt': 'Modèle A\t1.5e3\nModèle B\t1499.25\n测试\t-2.5E+1\n',
    'ninety-nine.txt': ''.join('m%02d\t%s\n' % (i, bic()) for i in range(99)),
    'exponents.txt': 'a\t1e5\nb\t1.00001E5\nc\t2e-7\nd\t123456789012.5\ne\t5\n',
    'infinite.txt': 'big\t1e400\nsmall\t5\nneg\t-1e400\n',
    'decimal-comma.csv': 'model;BIC\nlm_base;2451,37\nlm_full;2449,5\nlm_null;2460\n',
    'spaced.txt': '        df      BIC\nm1       3 170.4266\nm2       4 162.5153\nm3       5 164.4713\n',
    'many.csv': 'name,BIC\n' + ''.join('model %d,%s\n' % (i, bic()) for i in range(1500)),
    'ties.txt': 'A\t7\nB\t9\nC\t7\n',
    'bad-line.csv': 'A,100\nB,12abc\n',
}
formats = ['json', 'csv', 'tsv', 'markdown', 'latex', 'svg', 'report']


def run(command, name, args, stdin, stdout):
    done = subprocess.run([*command, *args], input=stdin, stdin=None if stdin else subprocess.DEVNULL,
                          stdout=stdout, stderr=subprocess.PIPE, cwd=folder, env=env, timeout=120)
    out = done.stdout or b''
    if out.startswith(b'Date: '):  # the classic report's, in the system's own short forms
        date, _, out = out.partition(b'\n')
        assert len(date.split()) >= 3, (name, date)
    return done.returncode, out, done.stderr


def compare(what, ours, theirs):
    """Tells where the two results part; True when they don't."""
    for part, a, b in zip(('exit status', 'standard output', 'standard error'), ours, theirs):
        if a != b:
            at = next((i for i, (x, y) in enumerate(zip(a, b)) if x != y), None) \
                if isinstance(a, bytes) else None
            at = min(len(a), len(b)) if isinstance(a, bytes) and at is None else at
            shown = (a, b) if at is None else (a[max(0, at - 40):at + 40], b[max(0, at - 40):at + 40])
            print('DIFFERS: %s, %s (at byte %s):\n  this:  %r\n  Linux: %r' % (what, part, at, *shown))
    return ours != theirs


with tempfile.TemporaryDirectory() as folder:
    for name, text in files.items():
        with open(os.path.join(folder, name), 'wb') as out:
            out.write(text.encode())
    os.mkdir(os.path.join(folder, 'a folder'))
    cases = []
    for name, text in files.items():
        models = max(1, len(text.splitlines()))
        cases += [('%d %s' % (count, name), [str(count), name], None)
                  for count in sorted({min(99, models), 2})]
        cases += [('--format %s %s' % (f, name), ['--format', f, name], None) for f in formats]
        cases.append(('stdin %s' % name, ['--format', 'csv', '-'], text.encode()))
    cases += [('missing', ['3', 'no such.txt'], None), ('folder', ['--format', 'json', 'a folder'], None),
              ('count', ['1e9', 'worked.txt'], None), ('usage', ['--format', 'xml', 'worked.txt'], None),
              ('options', ['--format', 'latex', '--sort', 'file', '--confidence', '0.5', '--scale',
                           'jeffreys', '--label', 'tab:x', '--caption', 'Ø', 'ninety-nine.txt'], None),
              ('help', ['--help'], None)]
    failed = 0
    for what, args, stdin in cases:
        failed += compare(what, run([*runner, program], what, args, stdin, subprocess.PIPE),
                          run([reference], what, args, stdin, subprocess.PIPE))
    # A full disk and a closed pipe: exit status 3 and the reason, as on Linux.
    for what, args in (('full disk', ['3', 'worked.txt']), ('full disk', ['--format', 'json', 'many.csv'])):
        with open('/dev/full', 'wb') as full:
            results = [run(command, what, args, None, full) for command in ([*runner, program], [reference])]
        failed += compare(what, *results) or results[0][0] != 3
    reader, writer = os.pipe()
    os.close(reader)
    results = [run(command, 'closed pipe', ['--format', 'csv', 'many.csv'], None, writer)
               for command in ([*runner, program], [reference])]
    os.close(writer)
    failed += compare('closed pipe', *results) or results[0][0] != 3
    print('%d passed, %d failed' % (len(cases) + 3 - failed, failed))
    sys.exit(1 if failed else 0)
