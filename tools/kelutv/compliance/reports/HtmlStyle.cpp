#include "tools/kelutv/compliance/reports/HtmlStyle.h"

namespace kelutv::tool::compliance {

const char* const kHtmlStyle = R"(
:root { color-scheme: light dark; --ground: #fff; --panel: #f4f5f7; --line: #d5d8de; --ink: #1c2026; --dim: #5c6470;
  --passed: #1f7a3d; --failed: #c0262d; --refused: #2863b8; --expected-failure: #9a5b00; --left-out: #6b7280;
  --inconclusive: #7a3fa8; --bar: #5b87c5; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #14171c; --panel: #1e2229; --line: #363c46; --ink: #e6e8ec; --dim: #a0a8b4; --passed: #5cc37f;
    --failed: #ff7076; --refused: #79aef5; --expected-failure: #e2a33f; --left-out: #9aa1ad; --inconclusive: #c390ec;
    --bar: #6f9bd8; } }
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 70rem; padding: 1rem; background: var(--ground); color: var(--ink);
  font: 1rem/1.5 system-ui, sans-serif; overflow-wrap: anywhere; }
h1 { font-size: 1.6rem; line-height: 1.2; margin: 1rem 0 .3rem; }
h2 { font-size: 1.2rem; margin: 2.2rem 0 .6rem; }
p { margin: .3rem 0; }
.dim { color: var(--dim); }
code, pre { font: .85rem/1.45 ui-monospace, monospace; }
pre { margin: .3rem 0; padding: .6rem; background: var(--ground); border: 1px solid var(--line); border-radius: .3rem;
  overflow-x: auto; overflow-wrap: normal; }
dl.with { display: grid; grid-template-columns: max-content 1fr; gap: .1rem 1rem; margin: .8rem 0; font-size: .9rem; }
dl.with dt { color: var(--dim); }
dl.with dd { margin: 0; }
ul.counts { display: grid; grid-template-columns: repeat(auto-fit, minmax(8.5rem, 1fr)); gap: .6rem; padding: 0;
  list-style: none; }
ul.counts li { padding: .5rem .8rem; background: var(--panel); border-left: .3rem solid var(--tone); border-radius: .3rem; }
ul.counts b { display: block; font-size: 1.5rem; line-height: 1.2; font-variant-numeric: tabular-nums; }
table { width: 100%; border-collapse: collapse; font-size: .9rem; }
th, td { padding: .35rem .5rem; border-bottom: 1px solid var(--line); text-align: left; vertical-align: middle; }
table + table { margin-top: 1.2rem; }
th { color: var(--dim); font-weight: normal; }
th, td { overflow-wrap: normal; }
td.number, th.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
td.picture { width: 40%; }
svg { display: block; width: 100%; }
svg.share { height: .8rem; }
svg.times { height: 2.2rem; }
.scale { display: flex; justify-content: space-between; color: var(--dim); font-size: .75rem; }
details { margin: .5rem 0; padding: .5rem .8rem; background: var(--panel); border-left: .3rem solid var(--tone);
  border-radius: .3rem; }
summary { cursor: pointer; }
details ul { padding-left: 1.2rem; }
.passed { --tone: var(--passed); } .failed { --tone: var(--failed); } .refused { --tone: var(--refused); }
.expected-failure { --tone: var(--expected-failure); } .left-out { --tone: var(--left-out); }
.inconclusive { --tone: var(--inconclusive); }
rect.passed, rect.failed, rect.refused, rect.expected-failure, rect.left-out, rect.inconclusive { fill: var(--tone); }
rect.bar { fill: var(--bar); }
line { stroke: var(--ink); stroke-width: 2; vector-effect: non-scaling-stroke; }
line.p99 { stroke-dasharray: 3 3; }
@media (max-width: 40rem) {
  th.wide, td.wide { display: none; }
  tr { display: grid; grid-template-columns: 1fr repeat(3, 4.6rem); border-bottom: 1px solid var(--line); }
  th, td { border: 0; }
  td.picture, th.picture { width: auto; grid-column: 1 / -1; } }
@media print { details::details-content { display: block; content-visibility: visible; } }
)";

} // namespace kelutv::tool::compliance
