#include "timeline/svg.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

#include "base/xml.h"
#include "platform/text.h"

std::string Number(double value) {
    const long long tenths = std::llround(value * 10);
    std::string text = std::to_string(std::llabs(tenths) / 10);
    if (tenths % 10 != 0) text += "." + std::to_string(std::llabs(tenths) % 10);
    return tenths < 0 ? "-" + text : text;
}

std::string Escaped(std::string_view text) {
    return EscapedXml(platform::ToUtf8(text));
}

std::string Shortened(const std::string& text, std::size_t most) {
    return text.size() <= most ? text : text.substr(0, most > 3 ? most - 3 : 0) + "...";
}

std::string Text(const char* cssClass, double x, double y, std::string_view text) {
    return std::string("<text class=\"") + cssClass + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) + "\">" +
           Escaped(text) + "</text>\n";
}

std::string Rectangle(const char* cssClass, double x, double y, double width, double height, double radius) {
    const std::string corners = radius > 0 ? "\" rx=\"" + Number(radius) : "";
    return std::string("<rect class=\"") + cssClass + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" width=\"" +
           Number(width) + "\" height=\"" + Number(height) + corners + "\"/>\n";
}

std::string TimeText(double ms) {
    if (ms < 60'000) return Number(ms / 1000) + " s";
    const long long seconds = std::llround(ms / 1000);
    char text[32];
    if (seconds < 3600) {
        std::snprintf(text, sizeof text, "%lld:%02lld", seconds / 60, seconds % 60);
    } else {
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60, seconds % 60);
    }
    return text;
}

std::string StyleSheet() {
    return R"(<style>
text { font-family: "Segoe UI", system-ui, "DejaVu Sans", sans-serif; font-size: 12px; fill: #1f2328 }
.title { font-size: 22px; font-weight: 600 }
.head { font-size: 15px; font-weight: 600 }
.quiet { fill: #59636e }
.axis { fill: #59636e; font-size: 11px; text-anchor: middle }
.keys { font-size: 11px; fill: #ffffff }
.number { font-size: 10px; text-anchor: middle; fill: #59636e }
.page { fill: #ffffff }
.panel { fill: #f6f8fa; stroke: #d1d9e0 }
.stripe { fill: #eff2f5 }
.grid { stroke: #d1d9e0; stroke-width: 1 }
.wait { fill: #fff1c2; fill-opacity: .7 }
.break { stroke: #9a6700; stroke-width: 1.2; fill: none }
.waittext { fill: #7d4e00; font-size: 11px; text-anchor: middle }
.window { fill: #ffffff; fill-opacity: .55; stroke: #b7c0c9 }
.typing { fill: #0969da }
.moves { fill: #aeb8c1 }
.held { fill: #e5534b; fill-opacity: .4 }
.left, .double { fill: #cf222e; stroke: #ffffff; stroke-width: 1 }
.ring { fill: none; stroke: #cf222e; stroke-width: 1.6 }
.right { fill: #ffffff; stroke: #8250df; stroke-width: 2.4 }
.other { fill: #bf3989; stroke: #ffffff; stroke-width: 1 }
.wheel { fill: #1a7f37 }
.path { fill: none; stroke: #57606a; stroke-width: 1.4; stroke-linejoin: round; stroke-linecap: round }
.drag { fill: none; stroke: #e5534b; stroke-width: 7; stroke-opacity: .3; stroke-linecap: round }
.start, .end { fill: none; stroke: #1f2328; stroke-width: 1.5 }
@media (prefers-color-scheme: dark) {
text { fill: #e6edf3 }
.quiet, .axis, .number { fill: #9198a1 }
.keys { fill: #ffffff }
.page { fill: #0d1117 }
.panel { fill: #151b23; stroke: #3d444d }
.stripe { fill: #1c232c }
.grid { stroke: #3d444d }
.wait { fill: #4a3812; fill-opacity: .6 }
.break { stroke: #d29922 }
.waittext { fill: #e3b341 }
.window { fill: #0d1117; stroke: #59636e }
.typing { fill: #1f6feb }
.moves { fill: #59636e }
.held { fill: #f85149 }
.left, .double { fill: #ff7b72; stroke: #0d1117 }
.ring { stroke: #ff7b72 }
.right { fill: #0d1117; stroke: #d2a8ff }
.other { fill: #f778ba; stroke: #0d1117 }
.wheel { fill: #3fb950 }
.path { stroke: #9198a1 }
.drag { stroke: #f85149 }
.start, .end { stroke: #e6edf3 }
}
</style>
)";
}
