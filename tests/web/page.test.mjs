// The web page in Debian's Chromium, opened from disk as a researcher opens
// it, held against the Linux build's tovarin-report on the same files:
//   node page.test.mjs SITE_DIR TOVARIN_REPORT SOURCE_DIR
// 77 (skipped) without Chromium, the npm modules or the built site.
// TOVARIN_WEB_SCREENSHOTS=DIR saves the page at 1280×800 and 360×740 there.
import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [site, report, source] = process.argv.slice(2).map((p) => path.resolve(p));
const chromium = "/usr/bin/chromium";
const here = path.dirname(new URL(import.meta.url).pathname);
const axeScript = path.join(here, "../../node_modules/axe-core/axe.min.js");
for (const [what, file] of [["chromium", chromium], ["npm modules (make deps)", axeScript],
  ["the site (make web)", path.join(site, "index.html")]]) {
  if (!existsSync(file)) {
    console.log(`skipped: ${what} missing (${file})`);
    process.exit(77);
  }
}
const { default: puppeteer } = await import("puppeteer-core");

const work = mkdtempSync(path.join(tmpdir(), "tovarin-web-"));
const downloads = path.join(work, "downloads");
// Names that a table must quote or escape, BICs of every size and a tie.
const names = ["null", "linear", 'say "hi"', "a,b;c", "x & <y>", "Größe", "tab\u00a0space", "m8", "m9",
  "m10", "very long model name with many words", "last"];
const bics = [2461.58, 2451.37, 2453.1, 2451.37, 2470.25, 1e-3, 2452.9, 2455, 2499.5, 2451.9, 2460, 2457.75];
const dataName = "models.csv";
writeFileSync(path.join(work, dataName), "model,BIC\n" + names.map((name, i) =>
  `"${name.replaceAll('"', '""')}",${bics[i]}\n`).join(""));
const fixtures = path.join(here, "fixtures");

// The command's output for a file, run where the file is, named as the page names it.
function cli(folder, args) {
  const run = spawnSync(report, args, { cwd: folder, env: { ...process.env, LC_ALL: "C" } });
  return { out: run.stdout, err: run.stderr.toString(), status: run.status };
}
const messages = readFileSync(path.join(source, "engine/report/Messages.hpp"), "utf8");
function message(name) {
  const found = new RegExp(`${name} =\\s*((?:"[^"]*"\\s*)+);`).exec(messages);
  return found[1].match(/"[^"]*"/g).map((part) => part.slice(1, -1)).join("");
}

const browser = await puppeteer.launch({ executablePath: chromium, headless: true, args: ["--no-sandbox"] });
let failed = false;
try {
  const page = await browser.newPage();
  await page.setViewport({ width: 1280, height: 800 });
  const requests = [];
  page.on("request", (request) => requests.push(request.url()));
  const errors = [];
  page.on("pageerror", (error) => errors.push(error.message));
  const cdp = await browser.target().createCDPSession();
  await cdp.send("Browser.setDownloadBehavior", { behavior: "allow", downloadPath: downloads, eventsEnabled: true });
  const finished = new Map();
  cdp.on("Browser.downloadProgress", (event) => {
    if (event.state === "completed") finished.get(event.guid)?.();
  });
  const siteUrl = pathToFileURL(site).href + "/";
  await page.goto(siteUrl + "index.html");
  await page.waitForSelector("body[data-ready]", { timeout: 20000 });

  async function accessible(when) {
    // Through the DevTools protocol, which the page's policy (no inline script) leaves alone.
    await page.evaluate(readFileSync(axeScript, "utf8"));
    const result = await page.evaluate(() => globalThis.axe.run());
    const bad = result.violations.filter((v) => v.impact === "serious" || v.impact === "critical");
    assert.deepEqual(bad.map((v) => `${v.id}: ${v.help}`), [], `axe-core, ${when}`);
  }
  await accessible("the empty page");
  assert.match(await page.title(), /Tovarin.*BIC/);
  assert.equal(await page.$$eval("#rows tr", (rows) => rows.length), 0);

  async function choose(file) {
    await page.evaluate(() => { document.getElementById("rows").textContent = ""; });
    const input = await page.$("#file");
    await input.uploadFile(file);
    await page.waitForFunction(() => !document.getElementById("status").textContent.startsWith("Reading"));
  }

  // The table and the chart at a confidence of 0.9, in the file's order.
  await page.$eval("#confidence", (input) => { input.value = "0.9"; });
  await page.select("#sort", "file");
  await choose(path.join(work, dataName));
  const options = ["--confidence", "0.9", "--sort", "file"];
  const columns = "rank,name,bic,delta_bic,weight,cumulative_weight,bayes_factor,ln_bayes_factor,evidence," +
    "in_confidence_set";
  // The table's text as tovarin-report's tsv gives it, the set as yes or no.
  function tsvRows(name, args) {
    const tsv = cli(work, ["--format", "tsv", "--columns", columns, ...args, name]);
    assert.equal(tsv.status, 0);
    const rows = tsv.out.toString().trimEnd().split("\n").slice(1).map((line) =>
      line.split("\t").map((cell) => cell.replace(/^"(.*)"$/, "$1").replaceAll('""', '"')
        .replace(/^TRUE$/, "yes").replace(/^FALSE$/, "no")));
    return { rows, err: tsv.err };
  }
  const shownRows = () => page.$$eval("#rows tr", (rows) => rows.map((row) =>
    [...row.cells].map((cell) => cell.textContent)));
  const tsv = tsvRows(dataName, options);
  const expected = tsv.rows;
  assert.deepEqual(await shownRows(), expected, "the table is tovarin-report's tsv");
  assert.equal(await page.$eval("#problems", (pre) => pre.textContent), tsv.err, "notes as the command gives them");

  const svg = cli(work, ["--format", "svg", ...options, dataName]).out.toString();
  assert.ok(await page.evaluate((text) => {
    const drawn = document.querySelector("#chart svg").cloneNode(true);
    for (const name of ["role", "aria-labelledby"]) drawn.removeAttribute(name);
    drawn.querySelector("title").removeAttribute("id");
    return drawn.isEqualNode(new DOMParser().parseFromString(text, "image/svg+xml").documentElement);
  }, svg), "the chart is tovarin-report's svg");

  // Each download, byte for byte.
  const extensions = { csv: "csv", tsv: "tsv", json: "json", markdown: "md", latex: "tex", svg: "svg" };
  for (const [format, extension] of Object.entries(extensions)) {
    const done = new Promise((resolve) => {
      cdp.once("Browser.downloadWillBegin", (event) => finished.set(event.guid, resolve));
    });
    await page.click(`button[data-format="${format}"]`);
    await done;
    const saved = path.join(downloads, `models.${extension}`);
    const command = cli(work, ["--format", format, ...options, dataName]);
    assert.ok(readFileSync(saved).equals(command.out), `the ${format} download is tovarin-report's`);
    rmSync(saved);
  }

  // The classic report: the app's messages for a refused count, then its report.
  for (const [count, text] of [["", message("kEmptyCountMessage")], ["0", message("kBadCountMessage")]]) {
    await page.$eval("#count", (input) => { input.value = ""; });
    if (count) await page.type("#count", count);
    await page.click("#report-run");
    assert.equal(await page.$eval("#report-message", (p) => p.textContent), text, `count "${count}"`);
    assert.equal(await page.$eval("#report", (pre) => pre.textContent), "");
  }
  await page.$eval("#count", (input) => { input.value = ""; });
  await page.type("#count", "12");
  await page.click("#report-run");
  const dateless = (text) => text.replace(/^Date: .*$/m, "Date:");
  assert.equal(dateless(await page.$eval("#report", (pre) => pre.textContent)),
    dateless(cli(work, ["12", dataName]).out.toString()), "the classic report");
  await accessible("the page with results");

  // A confidence level the command refuses: its message, without its usage lines.
  const setConfidence = (level) => page.$eval("#confidence", (input, value) => {
    input.value = value;
    input.dispatchEvent(new Event("change"));
  }, level);
  await setConfidence("1.5");
  const usage = cli(work, ["--format", "tsv", "--confidence", "1.5", dataName]);
  assert.equal(usage.status, 2);
  assert.equal(await page.$eval("#problems", (pre) => pre.textContent), usage.err.split("\n")[0] + "\n");
  await setConfidence("0.9");

  // A long table, 200 rows at a time.
  writeFileSync(path.join(work, "long.txt"), bics.concat(bics).flatMap((bic, i) =>
    Array.from({ length: 20 }, (_, j) => `m${i}-${j}\t${bic + j}\n`)).join(""));
  await choose(path.join(work, "long.txt"));
  const long = tsvRows("long.txt", options).rows;
  assert.equal(await page.$eval("#rows-shown", (span) => span.textContent), "Rows 1 to 200 of 480");
  for (let click = 0; click < 2; ++click) await page.click("#rows-next");
  assert.deepEqual(await shownRows(), long.slice(400), "the last rows");
  assert.ok(await page.$eval("#rows-next", (button) => button.disabled));

  // The same data pasted and dropped: the same table, under the name it goes by.
  const example = readFileSync(path.join(source, "examples/worked-example.txt"), "utf8");
  writeFileSync(path.join(work, "pasted.txt"), example);
  await page.$eval("details#paste-box", (details) => { details.open = true; });
  await page.$eval("#paste", (box, text) => { box.value = text; }, example);
  await page.click("#paste-read");
  assert.deepEqual(await shownRows(), tsvRows("pasted.txt", options).rows, "pasted");
  writeFileSync(path.join(work, "dropped.txt"), example);
  await page.$eval("#drop", (zone, text) => {
    const data = new DataTransfer();
    data.items.add(new File([text], "dropped.txt"));
    zone.dispatchEvent(new DragEvent("drop", { dataTransfer: data, bubbles: true, cancelable: true }));
  }, example);
  await page.waitForFunction(() => document.getElementById("status").textContent.startsWith("Read dropped.txt"));
  assert.deepEqual(await shownRows(), tsvRows("dropped.txt", options).rows, "dropped");

  // What the careful reading refuses, named as the command names it: a line
  // with a decimal comma where commas separate, a file over 64 MiB.
  writeFileSync(path.join(work, "huge.txt"), Buffer.alloc(64 * 1024 * 1024 + 1, "m\t1\n"));
  for (const [folder, name, where] of [[fixtures, "decimal-comma.csv", "decimal-comma.csv:4: "],
    [work, "huge.txt", '"huge.txt": larger than 64 MiB']]) {
    await choose(path.join(folder, name));
    const refused = cli(folder, ["--format", "tsv", name]);
    assert.equal(await page.$eval("#problems", (pre) => pre.textContent), refused.err);
    assert.ok(refused.err.includes(where), refused.err);
    assert.equal(await page.$$eval("#rows tr", (rows) => rows.length), 0);
    assert.ok(await page.$eval("#pager", (pager) => pager.offsetParent === null), "no pager on show");
  }

  // The worked example for the pictures, and the narrow screen without sideways scrolling.
  await page.$eval("#confidence", (input) => { input.value = "0.95"; });
  await page.select("#sort", "bic");
  await choose(path.join(source, "examples/worked-example.txt"));
  await page.$eval("#count", (input) => { input.value = "3"; });
  await page.click("#report-run");
  const pictures = process.env.TOVARIN_WEB_SCREENSHOTS;
  const top = (id) => page.evaluate((at) => document.getElementById(at).scrollIntoView(), id);
  if (pictures) await top("table-heading").then(() => page.screenshot({ path: path.join(pictures, "web-page.png") }));
  await page.setViewport({ width: 360, height: 740 });
  await page.$eval("details#paste-box", (details) => { details.open = false; });
  await top("table-heading");
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= 360), "fits 360 px");
  if (pictures) await page.screenshot({ path: path.join(pictures, "web-page-narrow.png") });

  // Only the site's own files.
  const foreign = requests.filter((url) => !url.startsWith(siteUrl));
  assert.deepEqual(foreign, [], "requests beyond the site");
  assert.deepEqual(errors, [], "errors on the page");
  assert.deepEqual(readdirSync(downloads), []);
  console.log(`web page: every check passed (${requests.length} requests, all the site's own)`);
} catch (error) {
  failed = true;
  console.error(error);
} finally {
  await browser.close();
  rmSync(work, { recursive: true, force: true });
}
process.exit(failed ? 1 : 0);
