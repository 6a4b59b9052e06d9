// node browser.js PDFJS INDEX: prints what pdf.js, the reader in a browser, makes of a file: its
// bookmarks, page labels, links and structure. Pages are counted from 0.
"use strict";
const fs = require("fs");

// As the browser has it: links to other files are relative to the address of this one.
const ADDRESS = "https://index.invalid/folder/index.pdf";

// Complaints of pdf.js go to the console. That it runs without a browser is none of a file.
const warnings = [];
const OF_NODE = /fake worker|canvas|Path2D|DOMMatrix/;
console.log = console.warn = (text) => OF_NODE.test(text) || warnings.push(String(text));

async function placeOf(pdf, destination) {
  const named = typeof destination === "string";
  const place = named ? await pdf.getDestination(destination) : destination;
  if (!place) return null;
  return { page: await pdf.getPageIndex(place[0]), view: place[1].name, numbers: place.slice(2) };
}

async function bookmarksOf(pdf, items) {
  const bookmarks = [];
  for (const { title, dest, items: below } of items || [])
    bookmarks.push({ title, place: await placeOf(pdf, dest), below: await bookmarksOf(pdf, below) });
  return bookmarks;
}

// The page of another file that the browser opens, by the part of the address behind the "#".
function elsewhere(address) {
  const url = new URL(address);
  const [page, view, ...numbers] = JSON.parse(decodeURIComponent(url.hash.slice(1)));
  return { file: decodeURIComponent(url.pathname), page, view: view.name, numbers };
}

// Texts whose middle lies in a rectangle.
function textIn([left, bottom, right, top], texts) {
  const isIn = ({ x, y, width }) =>
    width > 0 && x + width / 2 > left && x + width / 2 < right && y > bottom && y < top;
  return texts.filter(isIn).map(({ text }) => text).join("");
}

async function linksOf(pdf, page, texts) {
  const links = [];
  for (const one of await page.getAnnotations())
    links.push({
      id: one.id,
      text: textIn(one.rect, texts),
      place: one.url ? elsewhere(one.url) : await placeOf(pdf, one.dest),
    });
  return links;
}

// Texts of a page, each with its place and the mark in which it stands.
function textsOf({ items }) {
  const texts = [];
  const marks = [];
  for (const { type, id, str, transform, width, hasEOL } of items) {
    const text = hasEOL ? str + "\n" : str;
    if (type && type.startsWith("begin")) marks.push(id);
    else if (type) marks.pop();
    else texts.push({ text, x: transform[4], y: transform[5], width, mark: marks.at(-1) });
  }
  return texts;
}

// The texts and links that the structure tells, in its order: each with the types of the elements
// around it.
function told(node, texts, roles, out) {
  for (const child of (node && node.children) || []) {
    if (child.role) told(child, texts, [...roles, child.role], out);
    else if (child.type === "object") out.push({ roles, link: child.id });
    else
      for (const { text, y } of texts.filter(({ mark }) => mark === child.id))
        out.push({ roles, text, y });
  }
  return out;
}

async function pagesOf(pdf) {
  const pages = [];
  for (let number = 1; number <= pdf.numPages; ++number) {
    const page = await pdf.getPage(number);
    const texts = textsOf(await page.getTextContent({ includeMarkedContent: true }));
    pages.push({
      links: await linksOf(pdf, page, texts),
      structure: told(await page.getStructTree(), texts, [], []),
    });
  }
  return pages;
}

async function main(library, file) {
  const data = new Uint8Array(fs.readFileSync(file));
  const { getDocument } = require(library);
  const pdf = await getDocument({ data, docBaseUrl: ADDRESS, verbosity: 1 }).promise;
  const answer = {
    bookmarks: await bookmarksOf(pdf, await pdf.getOutline()),
    labels: await pdf.getPageLabels(),
    pages: await pagesOf(pdf),
    warnings,
  };
  process.stdout.write(JSON.stringify(answer));
}

main(...process.argv.slice(2));
