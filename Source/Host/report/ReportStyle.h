#pragma once

#include "Host/report/HtmlWriter.h"

namespace TicketHost {

// How reports look: on light and on dark screens, wide and narrow, and on A4. Colours are named once for each
// of the two schemes; texts have at least 4.5 times the luminance of what they stand on, or the reverse, and
// lines that mean something 3 times.
inline constexpr HtmlStyle ReportStyle = R"css(
:root {
  color-scheme: light dark;
  --ground: #ffffff; --raised: #f4f5f7; --ink: #1a1d21; --quiet: #565d66; --rule: #d4d8dd;
  --mark: #0b5cad; --good: #176b35; --bad: #b3261e; --doubt: #7d4e00;
  --paper: #ffffff; --outline: #6b737c;
  --text: system-ui, -apple-system, "Segoe UI", Roboto, "Noto Sans", "DejaVu Sans", sans-serif;
  --code: ui-monospace, "SF Mono", "Cascadia Mono", Menlo, Consolas, "Noto Sans Mono", "DejaVu Sans Mono", monospace;
}
@media (prefers-color-scheme: dark) {
  :root {
    --ground: #15181c; --raised: #1e2227; --ink: #e4e7eb; --quiet: #a0a8b2; --rule: #363c44;
    --mark: #7db4f2; --good: #7ccb92; --bad: #ff8d84; --doubt: #e3b562;
    --paper: #262b31; --outline: #8b949e;
  }
}
* { box-sizing: border-box; }
html { font: 100%/1.5 var(--text); color: var(--ink); background: var(--ground); }
body { margin: 0 auto; max-width: 76rem; padding: 1.5rem clamp(1rem, 4vw, 3rem) 4rem; }
h1, h2, h3, h4, p, ol, ul, dl, figure, table { margin: 0; padding: 0; }
h1 { font-size: 1.625rem; line-height: 1.25; font-weight: 650; overflow-wrap: anywhere; }
h2 { font-size: 1.1875rem; font-weight: 650; margin: 2.75rem 0 .75rem; }
h3 { font-size: 1rem; font-weight: 600; }
h4 { font-size: .875rem; font-weight: 600; margin: 1.25rem 0 .375rem; }
a { color: var(--mark); text-underline-offset: .15em; }
code, .code { font-family: var(--code); font-size: .8125rem; overflow-wrap: anywhere; white-space: pre-wrap; }
:focus-visible { outline: 3px solid var(--mark); outline-offset: 2px; border-radius: 2px; }
.skip { position: absolute; left: -100rem; padding: .5rem 1rem; background: var(--ground); }
.skip:focus { left: 1rem; top: .5rem; }
.quiet { color: var(--quiet); }
.good { color: var(--good); }
.bad { color: var(--bad); }
.doubt { color: var(--doubt); }
.wide { max-width: 44rem; }

.summary { color: var(--quiet); font-variant-numeric: tabular-nums; margin-top: .25rem; }
.path { color: var(--quiet); font-size: .875rem; overflow-wrap: anywhere; }
.verdict { margin-top: 1rem; padding: .625rem 1rem; border-left: .25rem solid var(--good); background: var(--raised); }
.verdict.failed { border-color: var(--bad); }
.verdict li { list-style: none; overflow-wrap: anywhere; }
nav ul { display: flex; flex-wrap: wrap; gap: .25rem 1.25rem; margin-top: 1rem; }
nav li { list-style: none; }

.legend { display: flex; flex-wrap: wrap; gap: .25rem 1.5rem; color: var(--quiet); font-size: .8125rem; }
.legend svg { vertical-align: -.0625rem; margin-right: .5rem; }
.sheets { display: grid; grid-template-columns: repeat(auto-fill, minmax(15rem, 1fr)); gap: 0 1.5rem; margin-top: .5rem; }
.sheets > li { list-style: none; display: grid; grid-template-rows: subgrid; grid-row: span 2; margin-top: 1.25rem; }
.sheets > .broad { grid-column: span 2; }
.sheets figure { display: grid; grid-template-rows: subgrid; grid-row: span 2; }
.sheets svg { display: block; align-self: end; max-width: 100%; height: auto; }
figcaption { margin-top: .5rem; font-size: .8125rem; line-height: 1.45; font-variant-numeric: tabular-nums; }
figcaption h3 { font-size: .875rem; }
figcaption dl { display: grid; grid-template-columns: 3.75rem 1fr; gap: 0 .5rem; margin-top: .125rem; }
figcaption dt { color: var(--quiet); }
figcaption dd { margin: 0; overflow-wrap: anywhere; }
.paper { fill: var(--paper); stroke: var(--outline); stroke-width: 1; }
.unknown { stroke-dasharray: 4 3; }
.edge { stroke: var(--mark); stroke-width: 4; fill: none; }
.failed-page { stroke: var(--bad); stroke-width: 1.5; fill: none; }
.cut { stroke: var(--ground); stroke-width: 4; fill: none; }
.bar { stroke: var(--outline); stroke-width: 1; fill: none; }
.number { fill: var(--ink); font-family: var(--text); text-anchor: middle; font-variant-numeric: tabular-nums; }

.lines { list-style: none; font-size: .8125rem; counter-reset: line; border-block: 1px solid var(--rule); padding-block: .375rem; }
.lines > li { counter-increment: line; display: flex; gap: 0 1rem; padding: .0625rem .25rem; }
.lines > li::before { content: counter(line); flex: 0 0 2.25rem; text-align: right; color: var(--quiet);
  font-size: .75rem; line-height: 1.25rem; font-variant-numeric: tabular-nums; }
.lines > .page { margin-top: .5rem; }
.lines > .page code { font-weight: 600; }

.lines > li { position: relative; }
.lines > li:hover, .lines > li:focus-within { background: var(--raised); }
.by { margin-left: auto; flex: 0 1 auto; max-width: 45%; color: var(--quiet); overflow: hidden; text-overflow: ellipsis;
  white-space: nowrap; }
.why { position: absolute; left: 3.5rem; top: 100%; z-index: 1; max-width: min(44rem, calc(100% - 3.5rem));
  padding: .375rem .75rem; background: var(--raised); border: 1px solid var(--outline); }
.lines > li:not(:hover, :focus-within) > .why { clip-path: inset(50%); width: 1px; height: 1px; overflow: hidden; padding: 0; }
.why li, .items ul { list-style: none; overflow-wrap: anywhere; }
.items { list-style: none; border-top: 1px solid var(--rule); font-size: .875rem; }
.items > li { padding: .375rem .25rem; border-bottom: 1px solid var(--rule); overflow-wrap: anywhere; }
.items > li:target { background: var(--raised); }
.items h3 { font-size: .875rem; }

.calls { border-top: 1px solid var(--rule); }
.calls > details { border-bottom: 1px solid var(--rule); }
summary { cursor: pointer; padding: .5rem .25rem; }
summary:hover { background: var(--raised); }
summary h3, summary h4 { display: inline; margin: 0; font-variant-numeric: tabular-nums; }
summary .quiet { font-size: .875rem; overflow-wrap: anywhere; }
.calls > details > div { scroll-margin-top: 3rem; padding: 0 .25rem 1.5rem 1.25rem; }

.scroll { overflow-x: auto; }
table { border-collapse: collapse; table-layout: fixed; width: 100%; min-width: 30rem; font-size: .8125rem; }
th:first-child { width: 38%; }
th, td { text-align: left; vertical-align: top; padding: .25rem 1rem .25rem 0; border-bottom: 1px solid var(--rule); }
thead th { color: var(--quiet); font-weight: 500; }
tbody th { font-weight: 400; }
th, td { overflow-wrap: anywhere; }
td, tbody th { font-family: var(--code); }
.level-1 { padding-left: 1.25rem; }
.level-2 { padding-left: 2.5rem; }
ins { color: var(--good); text-decoration: none; }
del { color: var(--bad); text-decoration: none; }

@media (max-width: 34rem) {
  h2 { margin-top: 2rem; }
  .sheets > .broad { grid-column: auto; }
  .calls > details > div { padding-left: .25rem; }
  .lines > li { gap: 0 .5rem; }
  .by { max-width: 30%; }
  .why { left: 0; max-width: 100%; }
  .lines > li::before { flex-basis: 1.5rem; }
}
@media print {
  @page { size: A4; margin: 16mm 15mm; }
  :root {
    --ground: #ffffff; --raised: #ffffff; --ink: #000000; --quiet: #4a4f55; --rule: #b8bdc3;
    --mark: #0b5cad; --good: #176b35; --bad: #b3261e; --doubt: #7d4e00; --paper: #ffffff; --outline: #6b737c;
  }
  html { font-size: 10pt; }
  body { max-width: none; padding: 0; }
  nav, .skip { display: none; }
  a { color: inherit; text-decoration: none; }
  h2, h3, h4, summary, thead { break-after: avoid; }
  .sheets > li, tr, .lines > li { break-inside: avoid; }
  .scroll { overflow: visible; }
  table { min-width: 0; }
  .lines > li { flex-wrap: wrap; }
  .lines > li > code { flex: 1 1 0; }
  .by { display: none; }
  .lines > li > .why, .lines > li:not(:hover, :focus-within) > .why { position: static; flex: 1 0 calc(100% - 3.25rem); clip-path: none;
    width: auto; height: auto; max-width: none; margin-left: 3.25rem; padding: 0; border: 0; color: var(--quiet); }
  details::details-content { content-visibility: visible; display: block; height: auto; }
  summary { list-style: none; padding-left: 0; }
  summary::-webkit-details-marker { display: none; }
}
)css";

}  // namespace TicketHost
