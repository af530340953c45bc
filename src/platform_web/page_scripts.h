// The commands that run in a page, in a world of ours that its scripts, if they ran, could not
// reach. Functions as texts; their values come as JSON, never as part of the text.
#pragma once

namespace tavernook::page_scripts {

// Keys reach only a page in which something has the focus. The cursor comes to the start of the page
// while none stands in it.
inline constexpr char type_into[] = R"js(() => {
  document.designMode = 'on';
  document.body.focus();
  const cursor = getSelection();
  if (!document.body.contains(cursor.anchorNode)) cursor.collapse(document.body, 0);
})js";

// The address of a picture. It is never wider than the page.
inline constexpr char insert_picture[] = R"js((address) => {
  document.execCommand('insertImage', false, address);
  for (const image of document.images) {
    if (image.src === address) image.style.maxWidth = '100%';
  }
})js";

// The policy of the view, that of a saved page, and by their addresses the pictures to put inside.
// Gives the page as text. It stays as it is.
inline constexpr char whole_page[] = R"js((shown, saved, pictures) => {
  const page = document.documentElement.cloneNode(true);
  for (const meta of page.querySelectorAll('meta')) {
    const kind = meta.httpEquiv.toLowerCase();
    const isOurs = kind === 'content-security-policy' && [shown, saved].includes(meta.content);
    if (isOurs || kind === 'content-type' || meta.hasAttribute('charset')) meta.remove();
  }
  for (const image of page.querySelectorAll('img')) {
    if (Object.hasOwn(pictures, image.src)) image.src = pictures[image.src];
  }
  const told = (kind, content) => {
    const meta = document.createElement('meta');
    meta.httpEquiv = kind;
    meta.content = content;
    return meta;
  };
  page.querySelector('head').prepend(told('Content-Type', 'text/html; charset=windows-1252'),
                                     told('Content-Security-Policy', saved));
  return (document.doctype ? '<!DOCTYPE html>\n' : '') + page.outerHTML;
})js";

// A table too wide for the paper, though the engine makes what is half as wide again fit, gives way
// on paper to several that stand one behind the other, each with the first column and some of the
// others. One of more rows than `most` is made as small as it takes, so that nothing is cut off.
inline constexpr char fit_to_paper[] = R"js((paper, most) => {
  const mostWide = 1.45 * paper;
  const table = [...document.querySelectorAll('table')].find(one => one.offsetWidth > mostWide);
  if (!table) return;
  const rule = document.createElement('style');
  rule.setAttribute('data-fit', 'rule');
  document.head.append(rule);
  if (table.rows.length > most) {
    rule.textContent = '@media print { body { zoom: ' + mostWide / table.offsetWidth + '; } }';
    return;
  }
  rule.textContent = '@media screen { [data-fit=part] { display: none; } }' +
    '@media print { [data-fit=whole] { display: none; } [data-fit=part] { break-after: page; } }';
  const widths = [...table.rows[0].cells].map(cell => cell.offsetWidth);
  const room = mostWide - widths[0];
  const parts = [[]];
  let taken = 0;
  for (let column = 1; column < widths.length; ++column) {
    if (taken > 0 && taken + widths[column] > room) {
      parts.push([]);
      taken = 0;
    }
    parts[parts.length - 1].push(column);
    taken += widths[column];
  }
  for (const columns of parts) {
    const part = table.cloneNode(false);
    part.setAttribute('data-fit', 'part');
    const body = part.appendChild(document.createElement('tbody'));
    for (const row of table.rows) {
      const copy = body.appendChild(row.cloneNode(false));
      for (const column of [0, ...columns]) {
        if (row.cells[column]) copy.append(row.cells[column].cloneNode(true));
      }
    }
    table.before(part);
  }
  table.setAttribute('data-fit', 'whole');
})js";

inline constexpr char as_before_paper[] = R"js(() => {
  for (const added of document.querySelectorAll('[data-fit=rule], [data-fit=part]')) added.remove();
  for (const whole of document.querySelectorAll('[data-fit]')) whole.removeAttribute('data-fit');
})js";

// How many rows the longest table has.
inline constexpr char longest_table[] = R"js(() =>
  Math.max(0, ...[...document.querySelectorAll('tbody')].map(body => body.rows.length))
)js";

// On paper only the rows from `first` to `last` of the longest table, from 1, with what stands
// before the table in the first part and what stands behind it in the last. `last` 0: all again.
inline constexpr char part_on_paper[] = R"js((first, last, rows) => {
  for (const marked of document.querySelectorAll('[data-on-paper]')) marked.removeAttribute('data-on-paper');
  for (const rule of document.querySelectorAll('style[data-paper-rule]')) rule.remove();
  if (last === 0) return;
  const bodies = [...document.querySelectorAll('tbody')];
  const body = bodies.find(one => one.rows.length === Math.max(...bodies.map(b => b.rows.length)));
  const mark = (from, next) => {
    for (let at = from; at !== document.body && at.parentElement; at = at.parentElement) {
      for (let beside = next(at); beside; beside = next(beside)) beside.setAttribute('data-on-paper', 'no');
    }
  };
  body.setAttribute('data-on-paper', 'part');
  if (first > 1) mark(body, at => at.previousElementSibling);
  if (last < rows) mark(body, at => at.nextElementSibling);
  const rule = document.createElement('style');
  rule.setAttribute('data-paper-rule', '');
  rule.textContent = '@media print { [data-on-paper=no] { display: none; } [data-on-paper=part] > tr:nth-child(-n+' +
    (first - 1) + '), [data-on-paper=part] > tr:nth-child(n+' + (last + 1) + ') { display: none; } }';
  document.head.append(rule);
})js";

}  // namespace tavernook::page_scripts
