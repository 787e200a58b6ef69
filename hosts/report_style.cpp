// The sheet of styles of a report: light, dark and paper; a phone, a desk.

#include "hosts/report_page.h"

namespace quarvel::hosts {

const std::string_view kReportStyle =
    R"(:root{--ground:#fff;--card:#f5f7f9;--ink:#1c2024;--soft:#59636e;--line:#d5dbe1;--bar:#3572b0;
--link:#1f5fa8;--error:#b3261e;--warning:#8a5700;--adapted:#2d6a3e}
@media screen and (prefers-color-scheme:dark){:root{--ground:#101316;--card:#161a1e;--ink:#e4e7ea;
--soft:#9ba6b1;--line:#333a42;--bar:#5f9fdc;--link:#8cc0f5;--error:#ff8f86;--warning:#efbd62;--adapted:#7fcf95}}
*{box-sizing:border-box}
html{-webkit-text-size-adjust:100%}
body{margin:0;background:var(--ground);color:var(--ink);font:16px/1.5 system-ui,"Segoe UI",Roboto,
"Helvetica Neue",Arial,sans-serif}
main,footer{max-width:72rem;margin:0 auto;padding:0 1.25rem}
main{padding-top:1.5rem}
footer{padding-top:2rem;padding-bottom:2rem;color:var(--soft);font-size:.875rem}
h1{margin:0 0 .5rem;font-size:1.9rem;line-height:1.2;overflow-wrap:anywhere}
h2{margin:0 0 .75rem;font-size:1.3rem;line-height:1.25}
h3{margin:1.5rem 0 .25rem;font-size:1rem;overflow-wrap:anywhere}
p{margin:0 0 .75rem;overflow-wrap:anywhere}
a{color:var(--link)}
section{margin-top:2rem;padding-top:1.5rem;border-top:1px solid var(--line)}
.soft,.more,figcaption,caption{color:var(--soft)}
.error{color:var(--error)}.warning{color:var(--warning)}.adapted{color:var(--adapted)}
.facts{display:grid;grid-template-columns:auto minmax(0,1fr);gap:.1rem 1rem;margin:0 0 1.25rem}
.facts dt{color:var(--soft)}
.facts dd{margin:0;overflow-wrap:anywhere}
.figures{display:grid;grid-template-columns:repeat(auto-fit,minmax(8.5rem,1fr));gap:.75rem;margin:0 0 1rem}
.figures div{display:flex;flex-direction:column;padding:.7rem .9rem;border:1px solid var(--line);
border-radius:.5rem;background:var(--card)}
.figures dd{margin:0;font-size:1.45rem;font-weight:600;line-height:1.2;font-variant-numeric:tabular-nums}
.figures dt{color:var(--soft);font-size:.875rem}
nav{display:flex;flex-wrap:wrap;gap:.25rem 1.1rem;font-size:.95rem}
.wide{overflow-x:auto;margin:0 0 1.25rem}
.wide:focus-visible{outline:2px solid var(--link);outline-offset:2px}
table{border-collapse:collapse;font-size:.925rem;font-variant-numeric:tabular-nums}
caption{text-align:left;padding:0 0 .35rem;font-weight:600}
th,td{padding:.3rem 1.1rem .3rem 0;text-align:left;vertical-align:top}
th:last-child,td:last-child{padding-right:.25rem}
thead th{color:var(--soft);font-weight:500;font-size:.85rem;border-bottom:1px solid var(--line);white-space:nowrap}
tbody th{font-weight:500}
tbody th,tbody td{border-bottom:1px solid var(--line);max-width:22rem;overflow-wrap:break-word}
tbody tr:last-child>*{border-bottom:0}
.n{text-align:right;white-space:nowrap}
.pair{display:grid;grid-template-columns:repeat(auto-fit,minmax(min(18rem,100%),1fr));gap:0 2.5rem}
.matrix{margin:0}
.axes{display:grid;grid-template-columns:auto minmax(0,1fr);gap:.3rem .5rem;font-size:.85rem;color:var(--soft);
font-variant-numeric:tabular-nums}
.axes .top{grid-column:2;display:flex;justify-content:space-between}
.axes .left{display:flex;flex-direction:column;justify-content:space-between;text-align:right;line-height:1.1}
.axes img{display:block;width:100%;border:1px solid var(--line);background:var(--card);image-rendering:pixelated}
.axes .dark{display:none}
@media screen and (prefers-color-scheme:dark){.axes .light{display:none}.axes .dark{display:block}}
figcaption{margin-top:.6rem;font-size:.9rem}
.histograms{display:grid;grid-template-columns:repeat(auto-fit,minmax(min(15rem,100%),1fr));gap:1.5rem 2rem;
align-items:start}
.bars{width:100%;table-layout:fixed}
.bars th:first-child{width:4.2rem;padding-right:.75rem;text-align:right}
.bars tbody th{color:var(--soft);font-weight:400;white-space:nowrap}
.bars tbody th,.bars tbody td{border:0;padding-top:.1rem;padding-bottom:.1rem}
.bar{display:flex;align-items:center;gap:.4rem}
.bar i{flex:none;height:.8rem;min-width:2px;width:calc(var(--part)*(100% - 5.5rem)/100);background:var(--bar);
border-radius:0 2px 2px 0;print-color-adjust:exact;-webkit-print-color-adjust:exact}
.bar span{font-size:.85rem}
.problems{margin:.25rem 0;padding-left:1.2rem}
.problems li{margin:.35rem 0;overflow-wrap:anywhere}
pre{margin:.25rem 0;padding:.5rem .7rem;overflow-x:auto;background:var(--card);border:1px solid var(--line);
border-radius:.35rem;color:var(--ink);font:.85rem/1.4 ui-monospace,"Cascadia Mono",Consolas,"DejaVu Sans Mono",monospace}
.equations{display:grid;grid-template-columns:minmax(0,1fr);margin:0}
.equations dt{font-weight:600;overflow-wrap:anywhere}
.equations dd{margin:0 0 .75rem;overflow-wrap:anywhere;font:.9rem/1.5 ui-monospace,"Cascadia Mono",Consolas,
"DejaVu Sans Mono",monospace}
@media (min-width:48rem){.equations{grid-template-columns:minmax(6rem,14rem) minmax(0,1fr);gap:.5rem 1.5rem}
.equations dd{margin:0}}
@media print{body{font-size:10pt}nav{display:none}main,footer{max-width:none;padding:0}section{margin-top:1rem;
padding-top:1rem}.wide,pre{overflow:visible}pre{white-space:pre-wrap}tr,figure,li,.figures div{break-inside:avoid}
thead{display:table-header-group}h2,h3,caption,dt{break-after:avoid}.axes{max-width:30rem!important}a{color:inherit;text-decoration:none}
table{font-size:9pt}}
)";

}  // namespace quarvel::hosts
