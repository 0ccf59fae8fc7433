"""svg_chart.py TOVARIN_REPORT EXAMPLES DOCS: the chart of the worked example and
of 500 generated models, rendered by rsvg-convert and measured in pixels: each bar
as long as its weight (from the JSON of the same file) within a pixel, filled
exactly when the model is in the confidence set, the names as <text>, the rest
of the models in one line; the picture in docs/ is the one the build makes.
Exit status 77: rsvg-convert is missing."""
import json, math, os, random, shutil, subprocess, sys, tempfile, zlib
import xml.etree.ElementTree as ET

program, examples, docs = sys.argv[1:4]
if not shutil.which('rsvg-convert'):
    print('SKIP: rsvg-convert (librsvg2-bin) is not installed')
    sys.exit(77)
SVG = '{http://www.w3.org/2000/svg}'


def run(*args):
    return subprocess.run([program, *args], capture_output=True, check=True).stdout


def grey_pixels(png):
    """Rows of grey levels of an 8-bit RGBA PNG as rsvg-convert writes it."""
    pos, idat, width, height = 8, b'', 0, 0
    while pos < len(png):
        length, kind = int.from_bytes(png[pos:pos + 4], 'big'), png[pos + 4:pos + 8]
        body = png[pos + 8:pos + 8 + length]
        if kind == b'IHDR':
            width, height = int.from_bytes(body[:4], 'big'), int.from_bytes(body[4:8], 'big')
            assert body[8:13] == bytes([8, 6, 0, 0, 0]), body
        elif kind == b'IDAT':
            idat += body
        pos += 12 + length
    raw, stride, rows, prior = zlib.decompress(idat), width * 4, [], bytearray(width * 4)
    for y in range(height):
        kind, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a, b, c = line[i - 4] if i >= 4 else 0, prior[i], prior[i - 4] if i >= 4 else 0
            p = a + b - c
            near = a if abs(p - a) <= abs(p - b) and abs(p - a) <= abs(p - c) else b if abs(p - b) <= abs(p - c) else c
            line[i] = (line[i] + [0, a, b, (a + b) // 2, near][kind]) & 0xFF
        rows.append([(line[4 * x] + line[4 * x + 1] + line[4 * x + 2]) // 3 for x in range(width)])
        prior = line
    return rows


def check(data_file):
    svg = run('--format', 'svg', data_file)
    table = json.loads(run('--format', 'json', data_file))
    root = ET.fromstring(svg)  # well-formed XML
    assert root.tag == SVG + 'svg' and root.get('version') == '1.1' and root.get('width') == '85mm'
    assert not list(root.iter(SVG + 'script'))
    texts = [t.text for t in root.iter(SVG + 'text')]
    bars = [g for g in root.iter(SVG + 'g') if g.find(SVG + 'rect') is not None]
    models = [m for m in table['models'] if m['rank'] <= 30]
    assert [g.find(SVG + 'title').text for g in bars] == [m['name'] for m in models]
    for model in models:
        name = model['name']
        assert name in texts or any(t and '\u2026' in t and name.startswith(t.split('\u2026')[0])
                                    and name.endswith(t.split('\u2026')[1]) for t in texts), name
    rest = table['models'][30:]
    if rest:
        together = sum(m['weight'] for m in rest)
        line = next(t for t in texts if t.startswith('%d more models, weight ' % len(rest)))
        assert math.isclose(float(line.split()[4]), together, rel_tol=0.05), (line, together)

    with tempfile.NamedTemporaryFile(suffix='.svg') as file:
        file.write(svg)
        file.flush()
        png = subprocess.run(['rsvg-convert', '-z', '4', file.name], capture_output=True, check=True).stdout
    pixels = grey_pixels(png)
    scale = len(pixels[0]) / float(root.get('viewBox').split()[2])  # pixels to the user unit
    for g, model in zip(bars, models):
        rect = g.find(SVG + 'rect')
        x, y, h = (float(rect.get(k)) for k in ('x', 'y', 'height'))
        row = pixels[round((y + h / 2) * scale)]
        dark = [i for i in range(round(x * scale) - 4, len(row)) if row[i] < 128 and i < (x + 145) * scale]
        stroke = float(rect.get('stroke-width')) * scale
        length = (dark[-1] - dark[0] + 1 - stroke) if dark else 0.0
        assert abs(length - model['weight'] * 140 * scale) <= 1.0, (model, length)
        if length > 3 * stroke:  # wide enough to have an inside
            inside = row[round((x + model['weight'] * 70) * scale)]
            assert (inside < 128) == model['in_confidence_set'], (model, inside)


check(os.path.join(examples, 'worked-example.txt'))
random.seed(500)
with tempfile.NamedTemporaryFile('w', suffix='.txt') as many:
    many.write(''.join('%s\t%r\n' % ('model_%d_with_a_rather_long_name' % i if i % 5 == 0 else 'm%d<&>' % i,
                                     1000 + random.expovariate(0.5)) for i in range(500)))
    many.flush()
    check(many.name)

# The README's picture is what the build makes of the worked example.
with open(os.path.join(docs, 'worked-example-chart.svg'), 'rb') as shown:
    assert shown.read() == run('--format', 'svg', os.path.join(examples, 'worked-example.txt')), \
        'docs/worked-example-chart.svg is out of date: run make docs'
print('ok')
