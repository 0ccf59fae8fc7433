// The page: hands the data file to the engine (tovarin-report's own code,
// compiled to WebAssembly by web/WebEngine.cpp) and shows what it writes.
// Everything happens here; nothing is sent anywhere.
(() => {
  "use strict";
  const $ = (id) => document.getElementById(id);
  const decoder = new TextDecoder();
  const encoder = new TextEncoder();
  // The table's columns, in the order of its header cells.
  const kColumns = "rank,name,bic,delta_bic,weight,cumulative_weight,bayes_factor,ln_bayes_factor," +
    "evidence,in_confidence_set";
  const kFormats = {
    csv: { ext: "csv", type: "text/csv" },
    tsv: { ext: "tsv", type: "text/tab-separated-values" },
    json: { ext: "json", type: "application/json" },
    markdown: { ext: "md", type: "text/markdown" },
    latex: { ext: "tex", type: "application/x-tex" },
    svg: { ext: "svg", type: "image/svg+xml" },
  };
  // tovarin-report's exit status for bad usage (cli/ExitStatus.hpp).
  const kUsageStatus = 2;
  // How the app's run ends (engine/report/AnalysisRun.hpp, RunEnd).
  const kRunEnd = { emptyCount: 0, badCount: 1, noFile: 2, noLowBic: 3, report: 4 };
  // The name pasted data goes by in messages, documents and the report.
  const kPastedName = "pasted.txt";
  // tovarin-report's limit on its input (cli/InputText.hpp).
  const kMaxInputBytes = 64 * 1024 * 1024;

  let engine = null;
  let fileName = null; // the data's name once the engine holds its bytes
  // The table's rows as the engine gave them, and the first one on show.
  const kPageRows = 200;
  let tableRows = [];
  let firstRow = 0;

  // The module travels inside the page's script (web/bundle.py puts it
  // there), gzip-compressed, because a page opened from disk may not fetch a
  // file of its own.
  async function moduleBytes() {
    const base64 = globalThis.tovarinEngineWasm;
    let packed;
    if (Uint8Array.fromBase64) {
      packed = Uint8Array.fromBase64(base64);
    } else {
      const text = atob(base64);
      packed = new Uint8Array(text.length);
      for (let i = 0; i < text.length; ++i) packed[i] = text.charCodeAt(i);
    }
    const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream("gzip"));
    return new Response(stream).arrayBuffer();
  }

  async function loadEngine() {
    const bytes = await moduleBytes();
    engine = await globalThis.TovarinEngine({
      instantiateWasm(imports, receive) {
        WebAssembly.instantiate(bytes, imports).then((result) => receive(result.instance));
        return {};
      },
    });
    globalThis.tovarinEngineWasm = null;
  }

  // The browser compiles each function of the module on its first call, and
  // its faster code only for functions called often: a table of a few
  // thousand made-up models, made while the page waits for a file, has the
  // first real file find them ready.
  function warmUp() {
    if (fileName) return;
    let lines = "";
    for (let i = 0; i < 2000; ++i) lines += `m${i}\t${2400 + (i * 7919) % 1009}\n`;
    put(engine._tovarin_data_buffer, encoder.encode(lines));
    fileName = "warm-up.txt";
    parseTsv(decoder.decode(command("tsv", ["--columns", kColumns]).out));
    command("svg");
    fileName = null;
    engine._tovarin_data_buffer(0);
    performance.mark("tovarin-warm"); // for bench/web
    document.body.dataset.warm = "true";
  }

  // Memory may grow during a call, so the heap is looked up after each one.
  function heapSlice(pointer, size) {
    return engine.HEAPU8.slice(pointer, pointer + size);
  }

  function put(allocate, bytes) {
    const pointer = allocate(bytes.length);
    engine.HEAPU8.set(bytes, pointer);
  }

  // One call into the engine: `fields` as its arguments, standard output as
  // bytes, standard error as text.
  function call(run, fields) {
    put(engine._tovarin_fields_buffer, encoder.encode(fields.join("\0")));
    const status = run();
    return {
      status,
      out: heapSlice(engine._tovarin_out(), engine._tovarin_out_size()),
      err: decoder.decode(heapSlice(engine._tovarin_err(), engine._tovarin_err_size())),
    };
  }

  // tovarin-report's arguments for a format, with the page's options.
  function command(format, extra = []) {
    const confidence = $("confidence").value.trim() || "0.95";
    return call(engine._tovarin_command, ["--format", format, "--confidence", confidence,
      "--sort", $("sort").value, ...extra, "--", fileName]);
  }

  function say(text) {
    $("status").textContent = text;
  }

  function showProblems(text) {
    $("problems").textContent = text;
    $("problems-box").hidden = text === "";
  }

  function escapeHtml(text) {
    return text.replace(/[&<>"]/g, (c) => ({ "&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;" })[c]);
  }

  // The fields of a TSV table, quoted as CSV where a field holds a tab, a
  // quote or a line break. Without a quote anywhere, the browser's own
  // splitting does it at once.
  function parseTsv(text) {
    if (!text.includes('"')) {
      return text.split("\n").slice(0, -1).map((line) => line.split("\t"));
    }
    const rows = [];
    let row = [];
    let i = 0;
    while (i < text.length) {
      let field = "";
      if (text[i] === '"') {
        ++i;
        while (i < text.length) {
          if (text[i] === '"' && text[i + 1] === '"') {
            field += '"';
            i += 2;
          } else if (text[i] === '"') {
            ++i;
            break;
          } else {
            field += text[i++];
          }
        }
      } else {
        let end = i;
        while (end < text.length && text[end] !== "\t" && text[end] !== "\n") ++end;
        field = text.slice(i, end);
        i = end;
      }
      row.push(field);
      if (text[i] === "\t") {
        ++i;
      } else {
        rows.push(row);
        row = [];
        ++i;
      }
    }
    return rows;
  }

  function clearResults(caption) {
    tableRows = [];
    $("rows").textContent = "";
    $("pager").hidden = true;
    $("chart").textContent = "";
    $("table-caption").textContent = caption;
  }

  // The rows of the table from firstRow on, a screenful's worth: a table of
  // thousands of rows takes the browser seconds to lay out, and nobody reads
  // it whole on screen (the downloads hold it all).
  function showRows() {
    let html = "";
    for (const cells of tableRows.slice(firstRow, firstRow + kPageRows)) {
      html += cells[9] === "yes" ? '<tr class="in-set">' : "<tr>";
      for (let c = 0; c < cells.length; ++c) {
        html += c === 1 ? `<th scope="row">${escapeHtml(cells[c])}</th>` : `<td>${escapeHtml(cells[c])}</td>`;
      }
      html += "</tr>";
    }
    $("rows").innerHTML = html;
    const last = Math.min(firstRow + kPageRows, tableRows.length);
    $("pager").hidden = tableRows.length <= kPageRows;
    $("rows-shown").textContent = `Rows ${firstRow + 1} to ${last} of ${tableRows.length}`;
    $("rows-previous").disabled = firstRow === 0;
    $("rows-next").disabled = last === tableRows.length;
  }

  // The table and the chart of the data held, for the options set.
  function showTable() {
    const table = command("tsv", ["--columns", kColumns]);
    // A refused option (the confidence level) is the page's to say, without the command's usage lines.
    const refusedOption = table.status === kUsageStatus;
    $("confidence").setAttribute("aria-invalid", String(refusedOption));
    showProblems(refusedOption ? table.err.slice(0, table.err.indexOf("\n") + 1) : table.err);
    if (table.status !== 0) {
      clearResults(`${fileName} could not be used; see what the reading found.`);
      say(`${fileName}: no table (the reasons are listed below).`);
      return;
    }
    tableRows = parseTsv(decoder.decode(table.out)).slice(1);
    for (const cells of tableRows) cells[9] = cells[9] === "TRUE" ? "yes" : "no";
    firstRow = 0;
    showRows();
    const inSet = tableRows.filter((cells) => cells[9] === "yes").length;
    $("table-caption").textContent = `${tableRows.length} models of ${fileName}; ${inSet} in the confidence ` +
      `set of ${$("confidence").value}.`;
    const chart = command("svg");
    $("chart").innerHTML = decoder.decode(chart.out).replace(/^<\?xml[^>]*>\s*/, "");
    const svg = $("chart").querySelector("svg");
    if (svg) {
      svg.setAttribute("role", "img");
      svg.setAttribute("aria-labelledby", "chart-title");
      svg.querySelector("title")?.setAttribute("id", "chart-title");
    }
    say(`Read ${fileName}: ${tableRows.length} models.` + (table.err ? " Notes are listed below." : ""));
    performance.mark("tovarin-shown"); // for bench/web
  }

  function holdData(name, bytes) {
    put(engine._tovarin_data_buffer, bytes);
    fileName = name;
    $("report").textContent = "";
    $("report-message").textContent = "";
    $("report-copy").disabled = true;
    showTable();
  }

  async function readFile(file) {
    if (!engine) return;
    say(`Reading ${file.name}…`);
    try {
      // One byte past the command's limit is enough for the engine to refuse a file as it does.
      holdData(file.name, new Uint8Array(await file.slice(0, kMaxInputBytes + 1).arrayBuffer()));
    } catch (error) {
      fileName = null;
      clearResults("No data file read.");
      say(`${file.name} could not be read: ${error.message}`);
    }
  }

  function download(format) {
    if (!fileName) {
      say("Choose a data file first.");
      return;
    }
    const result = command(format);
    if (result.status !== 0) {
      showProblems(result.err);
      say(`No ${format} table: see what the reading found.`);
      return;
    }
    const { ext, type } = kFormats[format];
    const link = document.createElement("a");
    link.href = URL.createObjectURL(new Blob([result.out], { type }));
    link.download = fileName.replace(/\.[^.]*$/, "") + "." + ext;
    document.body.append(link);
    link.click();
    link.remove();
    setTimeout(() => URL.revokeObjectURL(link.href), 1000);
  }

  // The app's run: the count checked as the app checks it, its messages, its report.
  function makeReport() {
    if (!fileName) {
      say("Choose a data file first.");
      return;
    }
    const now = new Date();
    const date = new Intl.DateTimeFormat(undefined, { dateStyle: "short" }).format(now);
    const time = new Intl.DateTimeFormat(undefined, { timeStyle: "short" }).format(now);
    const result = call(engine._tovarin_report, [$("count").value, fileName, date, time]);
    $("report-message").textContent = result.err.trim();
    $("report").textContent = decoder.decode(result.out);
    $("report-copy").disabled = result.status !== kRunEnd.report;
    if (result.status === kRunEnd.emptyCount || result.status === kRunEnd.badCount ||
        result.status === kRunEnd.noLowBic) {
      $("count").focus();
    }
  }

  async function copyReport() {
    try {
      await navigator.clipboard.writeText($("report").textContent);
      say("The report is copied.");
    } catch {
      const range = document.createRange();
      range.selectNodeContents($("report"));
      getSelection().removeAllRanges();
      getSelection().addRange(range);
      say("Copying was refused: the report is selected, copy it with the keyboard.");
    }
  }

  // The Information text: paragraphs apart at empty lines, lines apart at a lone CR.
  function showInformation() {
    const text = decoder.decode(heapSlice(engine._tovarin_help(), engine._tovarin_help_size()));
    const box = $("information");
    for (const paragraph of text.split("\r\r").slice(1)) {
      const p = document.createElement("p");
      p.textContent = paragraph.replaceAll("\r", "\n");
      box.append(p);
    }
  }

  function wire() {
    $("file").addEventListener("change", () => {
      if ($("file").files.length > 0) readFile($("file").files[0]);
    });
    const drop = $("drop");
    drop.addEventListener("dragover", (event) => {
      event.preventDefault();
      drop.classList.add("over");
    });
    drop.addEventListener("dragleave", () => drop.classList.remove("over"));
    drop.addEventListener("drop", (event) => {
      event.preventDefault();
      drop.classList.remove("over");
      if (event.dataTransfer.files.length > 0) readFile(event.dataTransfer.files[0]);
    });
    // A file dropped beside the zone must not replace the page.
    window.addEventListener("dragover", (event) => event.preventDefault());
    window.addEventListener("drop", (event) => event.preventDefault());
    $("paste-read").addEventListener("click", () => {
      if (engine) holdData(kPastedName, encoder.encode($("paste").value));
    });
    for (const id of ["confidence", "sort"]) {
      $(id).addEventListener("change", () => {
        if (fileName) showTable();
      });
    }
    for (const button of document.querySelectorAll("[data-format]")) {
      button.addEventListener("click", () => download(button.dataset.format));
    }
    // As the app's count field: two digits at most, and a change empties the report.
    $("count").addEventListener("input", () => {
      $("count").value = $("count").value.replace(/[^0-9]/g, "").slice(0, 2);
      $("report").textContent = "";
      $("report-copy").disabled = true;
    });
    $("count").addEventListener("keydown", (event) => {
      if (event.key === "Enter") makeReport();
    });
    $("rows-previous").addEventListener("click", () => {
      firstRow = Math.max(0, firstRow - kPageRows);
      showRows();
    });
    $("rows-next").addEventListener("click", () => {
      firstRow += kPageRows;
      showRows();
    });
    $("report-run").addEventListener("click", makeReport);
    $("report-copy").addEventListener("click", copyReport);
  }

  wire();
  loadEngine().then(() => {
    showInformation();
    document.body.dataset.ready = "true";
    performance.mark("tovarin-ready");
    say("Ready: choose, drop or paste a data file.");
    setTimeout(warmUp, 0);
  }, (error) => say(`The engine could not start in this browser: ${error.message}`));
})();
