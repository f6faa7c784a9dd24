"use strict";
// Sorts and filters the tables of networks, and highlights a network in its table and its chart at the
// same time. Without this script the page shows the same data.
(() => {
  const valueOf = (row, column) => {
    const cell = row.cells[column];
    return cell.dataset.value ?? cell.textContent;
  };
  const compare = {
    number: (left, right) => Number(left) - Number(right),
    text: new Intl.Collator("en", { numeric: true, sensitivity: "base" }).compare,
  };

  const sortBy = (table, heading) => {
    const descends = heading.getAttribute("aria-sort") === "ascending";
    for (const other of table.tHead.rows[0].cells) other.removeAttribute("aria-sort");
    heading.setAttribute("aria-sort", descends ? "descending" : "ascending");
    const column = heading.cellIndex;
    const order = compare[heading.dataset.kind];
    const body = table.tBodies[0];
    const rows = [...body.rows].sort((left, right) =>
      (descends ? -1 : 1) * order(valueOf(left, column), valueOf(right, column)));
    body.append(...rows);
  };

  const bellsOf = new Map();
  for (const shape of document.querySelectorAll("svg [data-network]")) {
    const id = shape.dataset.network;
    bellsOf.set(id, [...(bellsOf.get(id) ?? []), shape]);
  }
  const mark = (row, name, on) => {
    for (const shape of bellsOf.get(row.dataset.network) ?? []) shape.classList.toggle(name, on);
  };

  const filter = (table, words, count) => {
    const rows = [...table.tBodies[0].rows];
    for (const row of rows) {
      const text = row.textContent.toLowerCase();
      row.hidden = !words.every((word) => text.includes(word));
      mark(row, "dim", row.hidden);
    }
    const shown = rows.filter((row) => !row.hidden).length;
    count.textContent = words.length === 0 ? "" : `${shown} of ${rows.length} networks`;
  };

  for (const table of document.querySelectorAll("table.networks")) {
    for (const heading of table.tHead.rows[0].cells) {
      const button = document.createElement("button");
      button.type = "button";
      button.append(...heading.childNodes);
      button.addEventListener("click", () => sortBy(table, heading));
      heading.append(button);
    }
    const bar = table.closest("section").querySelector(".filter");
    const input = bar.querySelector("input");
    const count = bar.querySelector("output");
    bar.hidden = false;
    input.addEventListener("input", () => {
      filter(table, input.value.toLowerCase().split(/\s+/).filter(Boolean), count);
    });
    for (const [start, end] of [["mouseover", "mouseout"], ["focusin", "focusout"]]) {
      const light = (on) => (event) => {
        const row = event.target.closest("tbody tr");
        if (row) mark(row, "lit", on);
      };
      table.addEventListener(start, light(true));
      table.addEventListener(end, light(false));
    }
  }

  // Opens the section of the class that a link leads to.
  const unfold = () => {
    const target = document.getElementById(decodeURIComponent(location.hash.slice(1)));
    if (target instanceof HTMLDetailsElement) target.open = true;
  };
  addEventListener("hashchange", unfold);
  unfold();
})();
