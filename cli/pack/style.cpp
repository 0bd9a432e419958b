#include "cli/pack/style.h"

namespace cli::pack {

std::string_view styleSheet() {
  return R"css(
:root {
  --ink: #17212b; --quiet: #4a5764; --line: #c9d1d9; --paper: #fff; --tint: #f3f6f9;
  --accent: #0b4a7f; --route: #b0005c; --other: #00606b; --alarm: #9b1c1c; --alarm-tint: #fdf1f0;
  --caution: #6b4a00; --caution-tint: #fff8e5;
  --mono: ui-monospace, "DejaVu Sans Mono", "Liberation Mono", Menlo, Consolas, monospace;
}
* { box-sizing: border-box; }
html { scroll-behavior: smooth; -webkit-text-size-adjust: 100%; }
body { margin: 0; color: var(--ink); background: var(--paper); line-height: 1.45;
  font-family: system-ui, "Segoe UI", Roboto, "Helvetica Neue", "DejaVu Sans", Arial, sans-serif; }
header.top { background: var(--accent); color: #fff; padding: 1.1rem 1.25rem; }
header.top p { margin: .15rem 0 0; }
h1 { font-size: 1.6rem; line-height: 1.2; margin: 0; letter-spacing: .01em; }
h1 .route { white-space: nowrap; }
h2 { font-size: 1.25rem; color: var(--accent); margin: 0 0 .75rem; padding-bottom: .25rem;
  border-bottom: 2px solid var(--accent); }
h3 { font-size: 1rem; margin: 1.25rem 0 .4rem; }
nav { padding: .75rem 1.25rem; background: var(--tint); border-bottom: 1px solid var(--line); }
nav ul { list-style: none; margin: 0; padding: 0; display: flex; flex-wrap: wrap; gap: .25rem 1rem; }
nav ul ul { display: none; }
nav a { display: inline-block; padding: .3rem 0; }
a { color: var(--accent); }
a:focus-visible, pre:focus-visible, .wide:focus-visible { outline: 3px solid var(--accent); outline-offset: 2px; }
main { padding: 1.25rem; max-width: 60rem; }
section { margin: 0 0 2.5rem; scroll-margin-top: .5rem; }
h3[id], figure[id] { scroll-margin-top: .5rem; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
th, td { text-align: left; vertical-align: top; padding: .35rem .9rem .35rem 0;
  border-bottom: 1px solid var(--line); }
thead th { color: var(--quiet); font-size: .8rem; font-weight: 600; white-space: nowrap; }
td:last-child { overflow-wrap: anywhere; }
td.number, th.number { text-align: right; white-space: nowrap; }
td.time { white-space: nowrap; }
caption { text-align: left; color: var(--quiet); font-size: .85rem; padding-bottom: .3rem; }
pre { font: .85rem/1.4 var(--mono); margin: 0; padding: .75rem .9rem; background: var(--tint);
  border-left: 3px solid var(--line); white-space: pre-wrap; overflow-wrap: anywhere; }
pre span { display: block; } pre span + span { margin-top: 1.4em; }
pre.table { white-space: pre; overflow-x: auto; overflow-wrap: normal; }
.failed { border-left: 4px solid var(--alarm); background: var(--alarm-tint); padding: .6rem .9rem; margin: .5rem 0; }
.failed p { margin: 0 0 .25rem; color: var(--alarm); font-weight: 600; }
.failed pre { background: none; border: 0; padding: 0; }
.failed ul { margin: 0; padding-left: 1.1rem; }
.stages { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(20rem, 100%), 1fr)); gap: 1rem; }
article { border: 1px solid var(--line); border-radius: .4rem; padding: .8rem 1rem; }
article h3 { margin: 0 0 .5rem; font-size: 1.15rem; }
dl { display: grid; grid-template-columns: max-content 1fr; gap: .25rem 1rem; margin: 0;
  font-variant-numeric: tabular-nums; }
dt { color: var(--quiet); font-size: .9rem; }
dd { margin: 0; overflow-wrap: anywhere; }
.tables { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(20rem, 100%), 1fr)); gap: 1.25rem 2rem; }
.remarks { border-left: 4px solid #b98900; background: var(--caution-tint); color: var(--caution);
  padding: .6rem .9rem .6rem 2rem; margin: 1rem 0; }
.note { color: var(--quiet); font-size: .85rem; margin: .5rem 0; }
figure { margin: 0 0 1.5rem; }
figcaption { font-size: .85rem; color: var(--quiet); margin-top: .35rem; }
.chart img { display: block; max-width: 100%; height: auto; border: 1px solid var(--line); }
footer { color: var(--quiet); font-size: .85rem; padding: 1rem 1.25rem; border-top: 1px solid var(--line); }
svg { display: block; width: 100%; height: auto; font-family: var(--mono); }
svg text { fill: var(--ink); }
.narrow { display: none; }
.map .ground { fill: #f7fafc; } .map .frame { fill: none; stroke: #8795a3; }
.map .grid { fill: none; stroke: #cfd8e0; }
.map .gridtext, .map .key { fill: var(--quiet); } .map .gridtext { text-anchor: middle; }
.map .key { font-size: .85em; } .map .end, .timeline .end { text-anchor: end; }
.map .leg { fill: none; stroke: var(--route); stroke-width: 2.4; stroke-linejoin: round; }
.map .leg.alternate { stroke: var(--other); stroke-dasharray: 7 5; }
.map .head { fill: var(--route); } .map .head.alternate { fill: var(--other); }
.map .leader { stroke: #8795a3; stroke-width: .8; fill: none; }
.map .aerodrome { fill: #fff; stroke: var(--accent); stroke-width: 3; }
.map .waypoint { fill: var(--ink); stroke: #fff; }
.map .interest { fill: #fff; stroke: var(--quiet); stroke-width: 1.5; }
.map .scale { fill: none; stroke: var(--quiet); stroke-width: 1.5; }
.map .name, .map .legtext { text-anchor: middle; paint-order: stroke; stroke: #f7fafc;
  stroke-width: 3px; stroke-linejoin: round; }
.map .name { font-weight: 700; } .map .minor { font-weight: 400; }
.map .legtext { fill: var(--route); font-size: .92em; } .map .legtext.alternate { fill: var(--other); }
.timeline .hour { stroke: #d9e0e6; } .timeline .midnight { stroke: #8795a3; stroke-dasharray: 3 3; }
.timeline .hourtext, .timeline .day { fill: var(--quiet); }
.timeline .day { font-weight: 700; } .timeline .hourtext { text-anchor: middle; }
.timeline .stage { fill: var(--route); } .timeline .on-stage { fill: #fff; }
.timeline .light { fill: #ffe08a; stroke: #b98900; stroke-width: .6; } .timeline .on-light { fill: #3f2f00; }
.timeline .validity { fill: #cfe3d4; stroke: #3f7f52; stroke-width: .6; } .timeline .on-validity { fill: #0f3a1e; }
.timeline .time { font-size: .92em; }

@media (max-width: 40rem) {
  main, nav, header.top, footer { padding-left: .9rem; padding-right: .9rem; }
  h1 { font-size: 1.3rem; } h1 .route { white-space: normal; }
  pre { font-size: .8rem; padding: .6rem .7rem; }
  th, td { padding-right: .6rem; } table { font-size: .9rem; }
  .broad { display: none; } .narrow { display: block; }
}
@media (min-width: 70rem) {
  body { display: grid; grid-template: "top top" auto "nav main" 1fr "nav footer" auto / 17rem minmax(0, 1fr); }
  header.top { grid-area: top; } main { grid-area: main; padding: 1.75rem 2.5rem; }
  footer { grid-area: footer; padding: 1rem 2.5rem; }
  nav { grid-area: nav; border: 0; border-right: 1px solid var(--line); }
  nav > ul { scrollbar-width: thin; position: sticky; top: .75rem; max-height: calc(100vh - 1.5rem); overflow-y: auto; display: block; }
  nav ul ul { display: block; padding-left: .9rem; font-size: .85rem; }
  nav ul ul a { padding: .1rem 0; }
}
@page { size: A4; margin: 12mm 13mm 15mm;
  @bottom-left { font: 8pt "DejaVu Sans", Arial, sans-serif; color: #4a5764; }
  @bottom-right { content: counter(page) " / " counter(pages);
    font: 8pt "DejaVu Sans", Arial, sans-serif; color: #4a5764; } }
@media print {
  html { font-size: 9.5pt; }
  body { display: block; }
  header.top { background: none; color: var(--ink); padding: 0 0 2mm; border-bottom: 1.5pt solid var(--ink); margin-bottom: 4mm; }
  nav { display: none; }
  main, footer { padding: 0; max-width: none; }
  a { color: inherit; text-decoration: none; }
  h2, h3, caption, thead { break-after: avoid; } tbody tr:first-child { break-before: avoid; } figcaption { break-before: avoid; }
  tr, figure, article, .sheet, pre.table, .slim .whole, .remarks, .failed { break-inside: avoid; }
  .failed pre { break-inside: auto; }
  section { margin-bottom: 6mm; }
  .stages { gap: 3mm; grid-template-columns: 1fr 1fr; } .stages article:only-child { grid-column: 1 / 3; }
  .tables { grid-template-columns: 1fr 1fr; gap: 3mm 6mm; } .tables .wide:only-child { grid-column: 1 / 3; }
  article { padding: 2mm 3mm; } dl { gap: .1rem .8rem; }
  th, td { padding-top: .7mm; padding-bottom: .7mm; }
  #charts { break-before: page; }
  pre, .wide { overflow: visible; }
  pre, pre.table { white-space: pre-wrap; overflow-wrap: anywhere; background: none; border: 0; padding: 0;
    font-size: 8.5pt; line-height: 1.3; orphans: 3; widows: 3; }
  pre.table { font-size: min(8.5pt, calc(184mm / var(--letters) / .61)); }
  pre.slim { columns: 2; column-gap: 5mm; font-size: 7.8pt; }
  .broad { display: block; } .narrow { display: none; }
  .chart img { max-height: 108mm; width: auto; margin: 0 auto; }
  footer { border: 0; border-top: .5pt solid var(--line); padding-top: 2mm; }
}
)css";
}

}  // namespace cli::pack
