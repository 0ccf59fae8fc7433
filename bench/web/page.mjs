// The web page's figures in Debian's headless Chromium, from disk (file://):
//   node bench/web/page.mjs [SITE_DIR] [RUNS]     (after make web and make deps)
// page ready: from the start of navigation to the engine compiled and the
// empty table shown; the warm-up the page then does while it waits for a file;
// 10,000 models: from the file chosen to the table and the chart in the
// document (its first 200 rows on show), and to the next frame drawn; the
// site's size.
import { createRequire } from "node:module";
import { mkdtempSync, readdirSync, rmSync, statSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import { pathToFileURL } from "node:url";

// puppeteer-core as the page's test installs it (node_modules/ at the top).
const require = createRequire(new URL("../../package.json", import.meta.url));
const puppeteer = require("puppeteer-core");
const site = path.resolve(process.argv[2] ?? "build-wasm/web");
const runs = Number(process.argv[3] ?? 10);

const work = mkdtempSync(path.join(tmpdir(), "tovarin-web-bench-"));
const data = path.join(work, "models-10000.txt");
let lines = "";
for (let i = 0; i < 10000; ++i) lines += `model ${i}\t${(2400 + ((i * 7919) % 10007) / 37).toFixed(2)}\n`;
writeFileSync(data, lines);

const median = (values) => values.sort((a, b) => a - b)[Math.floor(values.length / 2)];
const browser = await puppeteer.launch({ executablePath: "/usr/bin/chromium", headless: true, args: ["--no-sandbox"] });
const ready = [];
const warm = [];
const shown = [];
const drawn = [];
try {
  for (let run = 0; run < runs; ++run) {
    const page = await browser.newPage();
    await page.setViewport({ width: 1280, height: 800 });
    await page.goto(pathToFileURL(path.join(site, "index.html")).href);
    await page.waitForSelector("body[data-ready]");
    ready.push(await page.evaluate(() => performance.getEntriesByName("tovarin-ready")[0].startTime));
    await page.waitForSelector("body[data-warm]");
    warm.push(await page.evaluate(() => performance.getEntriesByName("tovarin-warm")[0].startTime -
      performance.getEntriesByName("tovarin-ready")[0].startTime));
    await page.evaluate(() => {
      globalThis.benchDrawn = new Promise((resolve) => {
        document.getElementById("file").addEventListener("change", () => {
          const start = performance.now();
          // Runs before the page's own handler, which takes the file from here.
          new PerformanceObserver((list, observer) => {
            const shown = list.getEntriesByName("tovarin-shown");
            if (shown.length === 0) return;
            observer.disconnect();
            const table = shown[0].startTime - start;
            requestAnimationFrame(() => setTimeout(() => resolve([table, performance.now() - start])));
          }).observe({ entryTypes: ["mark"] });
        }, { capture: true });
      });
    });
    await (await page.$("#file")).uploadFile(data);
    const [table, frame] = await page.evaluate(() => globalThis.benchDrawn);
    const rows = await page.$eval("#rows-shown", (span) => span.textContent);
    if (!rows.endsWith("of 10000")) throw new Error(`the table holds ${rows}`);
    shown.push(table);
    drawn.push(frame);
    await page.close();
  }
} finally {
  await browser.close();
  rmSync(work, { recursive: true, force: true });
}
const bytes = readdirSync(site).reduce((sum, file) => sum + statSync(path.join(site, file)).size, 0);
const ms = (values) => `median ${median(values).toFixed(0)} ms, best ${Math.min(...values).toFixed(0)} ms`;
console.log(`page ready (engine compiled, table empty): ${ms(ready)} (${runs} runs)`);
console.log(`  then its warm-up, waiting for a file:     ${ms(warm)}`);
console.log(`10,000 models to table and chart:          ${ms(shown)}`);
console.log(`  to the next frame drawn:                 ${ms(drawn)}`);
console.log(`site: ${bytes} bytes (${(bytes / 1024).toFixed(0)} KiB) in ${readdirSync(site).length} files`);
