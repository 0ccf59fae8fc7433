"""A LaTeX table through pdflatex with booktabs alone, or a Markdown table
through pandoc to PDF, read back by pdftotext; 77 where a tool is missing."""
import os, shutil, subprocess, sys, tempfile

program, form = sys.argv[1], sys.argv[2]
if not all(map(shutil.which, ('pdftotext', 'pdflatex' if form == 'latex' else 'pandoc'))):
    sys.exit(77)
names = ['lm_full_interact_x2', '50% & #{}\\', 'x*y|w<v[u]', 'a~b^c$d@e', 'a--b "c" \'d\'', 'Zürich']
bics = [2449.5, 2451.37, 2460.0, 2470.25, 3900.125, 2455.0]
with tempfile.TemporaryDirectory() as folder:
    path = lambda name: os.path.join(folder, name)
    with open(path('m.csv'), 'w', encoding='utf-8') as data:
        data.write(''.join('"%s",%r\n' % (n.replace('"', '""'), b) for n, b in zip(names, bics)))
    table = subprocess.run([program, '--format', form, path('m.csv')], capture_output=True,
                           check=True).stdout.decode()
    if form == 'latex':
        with open(path('t.tex'), 'w', encoding='utf-8') as tex:
            tex.write('\\documentclass{article}\\usepackage{booktabs}\\begin{document}\n'
                      + table + '\\end{document}\n')
        subprocess.run(['pdflatex', '-interaction=nonstopmode', '-halt-on-error', 't.tex'],
                       cwd=folder, capture_output=True, check=True)
        with open(path('t.log'), encoding='latin-1') as log:
            assert 'Overfull \\hbox' not in log.read(), 'wider than the text'
    else:
        with open(path('t.md'), 'w', encoding='utf-8') as md:
            md.write(table)
        subprocess.run(['pandoc', 't.md', '-o', 't.pdf'], cwd=folder, capture_output=True, check=True)
    text = subprocess.run(['pdftotext', '-layout', path('t.pdf'), '-'], capture_output=True,
                          check=True).stdout.decode()
shown = ['<0.001', '50% & #{}\\', 'x*y|w<v[u]', '$d@e', 'a--b "c"', '1450.62', 'very strong']
assert all(piece in text for piece in shown), [piece for piece in shown if piece not in text]
print('pdftotext finds every cell of the', form, 'table')
