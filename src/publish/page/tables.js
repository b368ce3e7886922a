"use strict";
const byId = id => document.getElementById(id);
const all = (selector, from = document) => [...from.querySelectorAll(selector)];
const dataOf = id => JSON.parse(byId(id).textContent);
const setup = dataOf("setup");
const dark = matchMedia("(prefers-color-scheme: dark)");
const svgSpace = "http://www.w3.org/2000/svg";

// make("p", {class: "note"}, "text", child ...): texts are always texts.
function make(name, attributes = {}, ...children) {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
  element.append(...children);
  return element;
}

function swatch(run) {
  const svg = document.createElementNS(svgSpace, "svg");
  for (const [key, value] of Object.entries({class: "swatch", viewBox: "0 0 28 8", width: 28, height: 8, "aria-hidden": "true"}))
    svg.setAttribute(key, value);
  const path = document.createElementNS(svgSpace, "path");
  path.setAttribute("d", "M1 4H27");
  path.setAttribute("class", "line run-" + run);
  svg.append(path);
  return svg;
}

// About four figures, as in the tables.
function shown(value) {
  const size = Math.abs(value);
  if (size === 0) return "0";
  if (size >= 1e9 || size < 1e-5) return value.toExponential(3);
  const magnitude = Math.floor(Math.log10(size));
  return value.toFixed(magnitude >= 3 ? 0 : 3 - magnitude);
}

function save(name, type, text) {
  const link = make("a", {href: URL.createObjectURL(new Blob([text], {type})), download: name});
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

const fileName = (id, ending) => {
  const title = document.title.replace(/[^A-Za-z0-9]+/g, "-").replace(/^-+|-+$/g, "").slice(0, 40);
  return (title ? title + "-" : "") + id + ending;
};

// --- Tables: sorting, and taken as CSV -------------------------------------------------------------------

const isNumber = cell => !cell.classList.contains("t") && !cell.classList.contains("v") && Boolean(cell.closest(".data"));

// A long text stands whole at the end of the page; a rounded number that is the exact one has noughts at its end.
function exact(cell) {
  if (cell.dataset.text) return byId("text-" + cell.dataset.text).textContent;
  const text = cell.dataset.v ?? cell.textContent.trim();
  const isRounded = cell.dataset.v === undefined && isNumber(cell) && text.includes(".") && !text.includes("e");
  return isRounded ? text.replace(/\.?0+$/, "") : text;
}

function csvText(cell) {
  let text = exact(cell);
  if (!isNumber(cell) && /^[=+\-@\t\r]/.test(text)) text = "'" + text;
  return /[",\r\n]/.test(text) ? '"' + text.replaceAll('"', '""') + '"' : text;
}

function csvOf(table) {
  const heading = [...table.tHead.rows[0].cells].map(cell => cell.dataset.name ?? cell.textContent);
  const rows = [...table.tBodies[0].rows].map(row => [...row.cells].map(csvText).join(","));
  return [heading.map(name => /[",]/.test(name) ? '"' + name.replaceAll('"', '""') + '"' : name).join(","), ...rows].join("\r\n") + "\r\n";
}

const order = new Intl.Collator("en", {numeric: true}).compare;

// What has no value stands below, whichever way.
function compareCells(a, b, way) {
  const [x, y] = [exact(a), exact(b)];
  if (x === "" || y === "") return x === y ? 0 : x === "" ? 1 : -1;
  return way * (isNumber(a) && isNumber(b) ? Number(x) - Number(y) : order(x, y));
}

function sortBy(table, column) {
  const header = table.tHead.rows[0].cells[column];
  const way = header.getAttribute("aria-sort") === "ascending" ? -1 : 1;
  for (const cell of table.tHead.rows[0].cells) cell.removeAttribute("aria-sort");
  header.setAttribute("aria-sort", way > 0 ? "ascending" : "descending");
  const rows = [...table.tBodies[0].rows];
  rows.sort((a, b) => compareCells(a.cells[column], b.cells[column], way));
  table.tBodies[0].append(...rows);
}

function equipTable(table) {
  [...table.tHead.rows[0].cells].forEach((cell, column) => {
    const button = make("button", {type: "button"}, ...cell.childNodes);
    cell.append(button);
    button.addEventListener("click", () => sortBy(table, column));
    const first = table.tBodies[0].rows[0]?.cells[column];
    cell.classList.toggle("n", Boolean(first) && isNumber(first));
  });
  const button = make("button", {type: "button", class: "act"}, "Save as CSV");
  button.setAttribute("aria-label", "Save as CSV: " + (table.caption?.textContent ?? table.id));
  button.addEventListener("click", () => save(fileName(table.id, ".csv"), "text/csv;charset=utf-8", csvOf(table)));
  const frame = table.closest(".table");
  frame.after(make("p", {class: "save"}, button));
}

// --- Pictures: taken as SVG -------------------------------------------------------------------------------

function svgOf(picture) {
  const copy = picture.cloneNode(true);
  setup.runs.forEach((run, k) => {
    if (hidden.has(k)) all(".run-" + k, copy).forEach(element => element.remove());
  });
  all("a", copy).forEach(link => {
    const group = document.createElementNS(svgSpace, "g");
    for (const name of ["fill", "font-size"]) group.setAttribute(name, link.getAttribute(name));
    group.append(...link.childNodes);
    link.replaceWith(group);
  });
  const box = copy.getAttribute("viewBox").split(" ");
  copy.setAttribute("width", box[2]);
  copy.setAttribute("height", box[3]);
  return '<?xml version="1.0" encoding="UTF-8"?>\n' + new XMLSerializer().serializeToString(copy) + "\n";
}

function saveButton(picture, number = "") {
  const title = picture.querySelector("title").textContent;
  const button = make("button", {type: "button", class: "act"}, "Save picture" + number);
  button.setAttribute("aria-label", "Save picture" + number + ": " + title);
  button.addEventListener("click", () => save(fileName(picture.id, ".svg"), "image/svg+xml", svgOf(picture)));
  return button;
}
