#include "timeline/picture.h"

#include "timeline/job_actions.h"
#include "timeline/mouse_map.h"
#include "timeline/svg.h"
#include "timeline/time_lanes.h"

namespace {

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string Summary(const Job& job, const JobActions& actions) {
    const double length = job.Events.empty() ? 0 : static_cast<double>(job.Events.back().time());
    return Counted(static_cast<std::size_t>(actions.rows), "row", "rows") + ", " +
           Counted(actions.windows, "window", "windows") + ", " + TimeText(length);
}

// The marks with their meanings, side by side.
std::string Legend(double y) {
    struct Entry {
        const char* mark;  // of SVG at the origin
        const char* text;
        double width;
    };
    constexpr Entry entries[] = {
        {"<rect class=\"typing\" x=\"-9\" y=\"-7\" width=\"18\" height=\"14\" rx=\"3\"/>", "typing", 85},
        {"<use href=\"#left\"/>", "left click", 100},
        {"<use href=\"#double\"/>", "double click", 118},
        {"<use href=\"#right\"/>", "right click", 104},
        {"<use href=\"#other\"/>", "other button", 118},
        {"<rect class=\"held\" x=\"-9\" y=\"-3\" width=\"18\" height=\"6\" rx=\"3\"/>", "held, drag", 104},
        {"<use href=\"#wheel\"/>", "wheel", 82},
        {"<rect class=\"moves\" x=\"-9\" y=\"-2\" width=\"18\" height=\"4\" rx=\"2\"/>", "moves", 86},
        {"<rect class=\"wait\" x=\"-9\" y=\"-7\" width=\"18\" height=\"14\"/>", "wait", 66},
        {"<rect class=\"start\" x=\"-7\" y=\"-7\" width=\"14\" height=\"14\" rx=\"7\"/>", "start of the path", 138},
        {"<rect class=\"end\" x=\"-7\" y=\"-7\" width=\"14\" height=\"14\" rx=\"2\"/>", "its end", 60},
    };
    std::string svg;
    double x = Margin + 10;
    for (const Entry& entry : entries) {
        svg += "<g transform=\"translate(" + Number(x) + " " + Number(y) + ")\">" + entry.mark + "</g>\n";
        svg += Text("quiet", x + 16, y + 4, entry.text);
        x += entry.width;
    }
    return svg;
}

}  // namespace

std::string PictureOf(const Job& job, const std::string& name) {
    const JobActions actions = ActionsOf(job);
    std::string body =
        Text("title", Margin, 44, Shortened(name, 80)) + Text("quiet", Margin, 66, Summary(job, actions));
    double bottom = 80;
    if (!actions.actions.empty()) {
        body += Legend(92);
        const Section lanes = TimeLanes(actions, 114);
        const Section map = MouseMap(actions, lanes.bottom + 20);
        body += lanes.svg + map.svg;
        bottom = map.bottom;
    }
    const std::string size = Number(PictureWidth) + " " + Number(bottom + 18);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + size + "\" width=\"" + Number(PictureWidth) +
           "\" role=\"img\">\n<title>" + Escaped(name) + "</title>\n" + StyleSheet() + Symbols() +
           Rectangle("page", 0, 0, PictureWidth, bottom + 18) + body + "</svg>\n";
}
