"""The real tovarin-report: the classic report's lines, every table format read
back by a real parser, the worked example's digits, output that can't be written."""
import csv, io, json, os, re, subprocess, sys, tempfile

program, examples = sys.argv[1], sys.argv[2]
here = os.path.dirname(os.path.abspath(__file__))
names = ['lm_age_sex', 'lm_age_sex_bmi', 'a "quoted", name', 'pipe|star*', '50% & $x_1^2$ {~}#\\',
         'Zürich–β', 'lm(y ~ a, b)', 'tab\there\x01x', "a--b'`<@[>"]
bics = [2451.37, 2449.5, -12.25, 1e-3, 2460.0, 3900.125, 2455.5, 2449.75, 2452.0]
data = ''.join('"%s",%r\r\n' % (n.replace('"', '""'), b) for n, b in zip(names, bics))


def run(*args, stdin=None):
    done = subprocess.run([program, *args], input=stdin, capture_output=True)
    assert done.returncode == 0, (args, done.stderr)
    return done.stdout.decode()


table = json.loads(run('--format', 'json', '-', stdin=data.encode()))
models = table['models']
assert [m['name'] for m in sorted(models, key=lambda m: m['rank'])] == \
    [n for _, n in sorted(zip(bics, names))], models
assert [m['bic'] for m in models] == sorted(bics)
assert table['count'] == len(names) and table['best_model'] == models[0]['name']
assert models[-1]['bayes_factor'] is None and models[-1]['ln_bayes_factor'] > 709


number = lambda text: None if text == 'Inf' else float(text)


# tsv and csv carry exactly the JSON's values.
for fmt, delimiter in (('csv', ','), ('tsv', '\t')):
    out = run('--format', fmt, '-', stdin=data.encode())
    rows = list(csv.DictReader(io.StringIO(out, newline=''), delimiter=delimiter))
    assert (fmt == 'csv') == out.endswith('\r\n')
    for row, model in zip(rows, models, strict=True):
        for key, value in model.items():
            got = {'rank': int, 'name': str, 'evidence': str, 'bic_source': str}.get(key, number)(row[key]) \
                if key != 'in_confidence_set' else {'TRUE': True, 'FALSE': False}[row[key]]
            assert got == value, (fmt, key, got, value)


def paper(model):
    """What a paper table shows of a model, from the JSON by Python's own rounding."""
    weight = '%.3f' % model['weight']
    factor = model['bayes_factor']
    return [str(model['rank']), model['name'], '%.2f' % model['bic'], '%.2f' % model['delta_bic'],
            '<0.001' if weight == '0.000' else weight, '%.3f' % model['cumulative_weight'],
            'inf' if factor is None else '%.2f' % factor if factor < 1e5 else '%.2e' % factor,
            '%.2f' % model['ln_bayes_factor'], model['evidence'],
            'yes' if model['in_confidence_set'] else 'no']


def cells(text, split, unescape, numeric):
    out = [c.strip() for c in split(text)]
    return [unescape(c) if i == 1 else c if i == 8 else numeric(c) for i, c in enumerate(out)]


def strict(escapes, specials):
    """Undoes a format's escapes; a special character left bare fails."""
    def unescape(cell):
        out, i = '', 0
        while i < len(cell):
            token = next((t for t in escapes if cell.startswith(t, i)), None)
            assert token or cell[i] not in specials, ('bare', cell[i], cell)
            out, i = (out + escapes[token], i + len(token)) if token else (out + cell[i], i + 1)
        return out
    return unescape


# Paper tables set a control character as a space.
for model in models:
    model['name'] = re.sub(r'[\x00-\x1f]', ' ', model['name'])
every = ['--columns', 'rank,name,bic,delta_bic,weight,cumulative_weight,bayes_factor,'
         'ln_bayes_factor,evidence,in_confidence_set']
md = run('--format', 'markdown', *every, '-', stdin=data.encode()).splitlines()
assert md[0].startswith('Table: ') and '(standard input)' in md[0]
md_specials = '\\`*_[]<>|~^$@&\'"'
md_unescape = strict({'\\' + c: c for c in md_specials + '-'}, md_specials)
md_numeric = lambda c: re.sub(r'e\+0*(\d+)', r'e+0\1', c.replace('>1.8e308', 'inf'))
for line, model in zip(md[4:], models, strict=True):
    split = lambda t: re.split(r'(?<!\\)\|', t)[1:-1]
    assert cells(line, split, md_unescape, md_numeric) == paper(model), line
    assert '--' not in line.replace('\\-', ''), line

tex = run('--format', 'latex', *every, '-', stdin=data.encode())
assert '\\caption{' in tex and '\\toprule' in tex and '\\bottomrule' in tex
body = tex.split('\\midrule\n')[1].split('    \\bottomrule')[0]
tex_escapes = {'\\' + c: c for c in '&%$#_{}'}
tex_escapes.update({'\\text%s{}' % n: c for n, c in (
    ('backslash', '\\'), ('asciitilde', '~'), ('asciicircum', '^'), ('less', '<'), ('greater', '>'),
    ('bar', '|'), ('asciigrave', '`'), ('quotesingle', "'"))})
tex_escapes.update({'\\texttt{\\char34}': '"', '-{}': '-', '$\\beta$': 'β'})
tex_unescape = strict(tex_escapes, '\\&%$#_{}~^<>|"`\'')
def tex_numeric(c):
    m = re.fullmatch(r'\$(\S+) \\times 10\^\{(\d+)\}\$', c)
    return ('%se+%02d' % m.groups()) if m else 'inf' if '308' in c else \
        c.replace('$-$', '-').replace('$<$', '<')
for line, model in zip(body.strip().split('\\\\\n'), models, strict=True):
    split = lambda t: re.split(r'(?<!\\)&', t.rstrip(' \\\n'))
    assert cells(line, split, tex_unescape, tex_numeric) == paper(model), line
    assert '--' not in line, line

# Files as R, pandas and Stata write them (fixtures/README.md): the BIC from its
# column, not df or r.squared, the names from theirs, not pandas' index; from
# log-likelihoods, R's BIC() to the last bit.
fixtures = os.path.join(here, 'fixtures')
with open(os.path.join(fixtures, 'loglik.csv')) as source:
    r_bic = {row['Modnames']: float(row['BIC']) for row in csv.DictReader(source)}
for name, extra in (('r-write-csv.csv', []), ('r-write-csv2.csv', []), ('r-write-table.txt', []),
                    ('r-print.txt', []), ('broom-style.csv', []), ('pandas-index.csv', []),
                    ('stata-estat-ic.txt', []),
                    ('loglik.csv', ['--loglik-column', 'LL', '--params-column', 'K', '--nobs', '32'])):
    got = json.loads(run('--format', 'json', '--sort', 'file', os.path.join(fixtures, name), *extra))
    assert [m['name'] for m in got['models']] == list(r_bic), (name, got)
    for m in got['models']:
        exact = name == 'loglik.csv'
        assert abs(m['bic'] - r_bic[m['name']]) <= (0 if exact else 1e-4), (name, m)
        assert m['bic_source'] == ('computed' if exact else 'read'), (name, m)

# The classic form stays as it was: every line of these files stands in its report.
for count, name in (('3', 'worked-example'), ('2', 'two-models')):
    lines = run(count, os.path.join(examples, name + '.txt')).splitlines()
    with open(os.path.join(here, name + '-rows.txt'), encoding='utf-8') as wanted:
        assert all(line in lines for line in wanted.read().splitlines()), (name, lines)

# A full disk and a closed pipe end in a message and exit status 3, in every form.
with tempfile.NamedTemporaryFile('w', suffix='.csv', delete=False) as big:
    big.write(''.join('m%d,%d\n' % (i, i) for i in range(20000)))
worked_file = os.path.join(examples, 'worked-example.txt')
for args in (['3', worked_file], ['--format', 'json', big.name], ['--help']):
    with open('/dev/full', 'w') as full:
        done = subprocess.run([program, *args], stdout=full, stderr=subprocess.PIPE)
    assert done.returncode == 3 and b'No space left' in done.stderr, (args, done)
    reader, writer = os.pipe()
    os.close(reader)  # closed before the first write, however small the output
    done = subprocess.run([program, *args], stdout=writer, stderr=subprocess.PIPE, timeout=60)
    os.close(writer)
    assert done.returncode == 3 and b'Broken pipe' in done.stderr, (args, done)
os.unlink(big.name)

# A directory on standard input is an unreadable input, not an empty one.
with tempfile.TemporaryDirectory() as folder:
    fd = os.open(folder, os.O_RDONLY)
    done = subprocess.run([program, '--format', 'csv', '-'], stdin=fd, capture_output=True)
    os.close(fd)
    assert done.returncode == 1 and b'Is a directory' in done.stderr, done

# The report's time as the user's locale writes it, from glibc's own locale data: 12-hour where
# the locale's time is, hours and minutes in its own form, never seconds.
hours, minutes = r'([01]\d|2[0-3])', r'[0-5]\d'
with tempfile.TemporaryDirectory() as locales:
    for name, clock in (('en_US', r'(0\d|1[0-2]):[0-5]\d [AP]M'), ('de_DE', hours + ':' + minutes),
                        ('fi_FI', hours + r'\.' + minutes), ('ja_JP', hours + '時' + minutes + '分'),
                        ('ko_KR', hours + '시 ' + minutes + '분')):
        made = subprocess.run(['localedef', '-i', name, '-f', 'UTF-8', os.path.join(locales, name + '.UTF-8')],
                              capture_output=True)
        assert os.path.isdir(os.path.join(locales, name + '.UTF-8')), ('localedef (package locales)', made.stderr)
        env = dict(os.environ, LOCPATH=locales, LC_ALL=name + '.UTF-8')
        date = subprocess.run([program, '3', worked_file], capture_output=True, env=env).stdout.decode()
        assert re.match(r'Date: .+  ' + clock + '\n', date), (name, date)
print('all formats read back')
