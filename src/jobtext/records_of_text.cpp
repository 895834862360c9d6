#include "jobtext/records_of_text.h"

#include <algorithm>
#include <bit>

#include "base/runtime_failure.h"
#include "jobs/job_fields.h"
#include "jobtext/carried.h"
#include "jobtext/differing_bytes.h"
#include "jobtext/event_names.h"
#include "jobtext/usual.h"

namespace {

constexpr std::int64_t MostUInt32 = std::numeric_limits<std::uint32_t>::max();

constexpr MemberRule Number(std::string_view name) {
    return {.name = name};
}
constexpr MemberRule Number(std::string_view name, std::int64_t least, std::int64_t most) {
    return {.name = name, .least = least, .most = most};
}
constexpr MemberRule Text(std::string_view name, std::size_t width) {
    return {.name = name, .kind = MemberKind::Text, .width = width};
}
constexpr MemberRule List(std::string_view name, std::size_t width) {
    return {.name = name, .kind = MemberKind::List, .width = width};
}
constexpr MemberRule Bytes() {
    return {.name = "bytes", .kind = MemberKind::Bytes};
}
constexpr MemberRule Array(std::string_view name) {
    return {.name = name, .kind = MemberKind::Array};
}

// Members stand in the order in which an export writes them: the search for a name begins behind the last one found.

enum EventMember : std::size_t {
    TimeMember,
    ActionMember,
    FlagsMember,
    KeyStateMember,
    DxMember,
    DyMember,
    MouseDataMember,
    KeyMember,
    ScanMember,
    StringIndexMember,
    ExtraInfoMember,
    ChainIndexMember,
    WaitMember,
    IfNoWindowMember,
    EventBytesMember,
    EventMemberCount
};
static_assert(EventMemberCount <= MostMembers);

// A word for the action is kept as its place, and this.
constexpr std::int64_t NamedAction = std::int64_t{1} << 32;

std::optional<std::int64_t> FindNamedAction(std::string_view name) {
    const auto place = FindAction(name);
    return place ? std::optional(NamedAction + *place) : std::nullopt;
}

constexpr MemberRule EventRuleList[] = {
    Number("time"),
    {.name = "action", .find = FindNamedAction},
    Number("dwFlags"),
    Number("KeyState"),
    Number("dx"),
    Number("dy"),
    Number("mouseData"),
    {.name = "vk", .least = 0, .most = 65535, .find = FindKey},
    Number("scan", -32768, 32767),
    Number("StringIndex"),
    Number("dwExtraInfo"),
    Number("WindowChainIndex"),
    Number("WaitForWindow"),
    {.name = "IfNoWindow", .least = 0, .most = 255, .find = FindChoice},
    Bytes(),
};

constexpr std::uint32_t AllEvents =
    MemberBits({TimeMember, ActionMember, ChainIndexMember, WaitMember, IfNoWindowMember, EventBytesMember});

enum WindowMember : std::size_t {
    CaptionMember,
    ClassMember,
    ControlMember,
    LengthMember,
    PlacementFlagsMember,
    ShowMember,
    MinimisedMember,
    MaximisedMember,
    NormalMember,
    WindowBytesMember
};

constexpr MemberRule WindowRuleList[] = {
    Text("Caption", CaptionWidth),
    Text("ClassName", ClassNameWidth),
    Number("ControlId"),
    Number("length", 0, MostUInt32),
    Number("flags", 0, MostUInt32),
    Number("showCmd", 0, MostUInt32),
    List("ptMinPosition", 2),
    List("ptMaxPosition", 2),
    List("rcNormalPosition", 4),
    Bytes(),
};

enum ChainMember : std::size_t { PathMember, LeafMember, DepthMember, ChainBytesMember };

constexpr MemberRule ChainRuleList[] = {
    List("Path", WindowChain::MaximumLevels),
    Number("LeafWindow"),
    Number("Depth"),
    Bytes(),
};

constexpr MemberRule JobRuleList[] = {
    Number("TessarineJob"),
    Number("CodePage"),
    Number("Version"),
    Text("ProgramPath", ProgramPathWidth),
    Text("CommandLine", CommandLineWidth),
    Number("WindowStyle", -32768, 32767),
    Text("Description", DescriptionWidth),
    Number("DurationMs"),
    Number("SpeedPercent"),
    Number("SkipMouseMoves"),
    Number("CapsLockState"),
    Number("RepeatCount"),
    Number("SafetyLevel"),
    Number("SimilarWindowNames"),
    Bytes(),
    Number("EventCount", std::numeric_limits<std::int32_t>::min(), 0),
    Number("StringCount", std::numeric_limits<std::int32_t>::min(), 0),
    Number("WindowCount", std::numeric_limits<std::int32_t>::min(), 0),
    Number("ChainCount", std::numeric_limits<std::int32_t>::min(), 0),
    Array("Strings"),
    Array("Events"),
    Array("Windows"),
    Array("Chains"),
    Array("Tail"),
};
static_assert(std::size(JobRuleList) == JobMemberCount);

// What a kind of event must and may have beside what all have.
struct EventShape {
    std::uint32_t required;
    std::uint32_t allowed;
};

EventShape ShapeOf(const EventAction& action) {
    switch (action.type) {
        case platform::InputMouse: {
            const std::uint32_t place =
                MemberBits({DxMember, DyMember}) | (action.isNamed ? 0 : MemberBit(FlagsMember));
            return {place, place | MemberBits({MouseDataMember, ExtraInfoMember})};
        }
        case platform::InputKeyboard: {
            const std::uint32_t key = MemberBit(KeyMember) | (action.isNamed ? 0 : MemberBit(KeyStateMember));
            return {key, key | MemberBits({ScanMember, ExtraInfoMember})};
        }
        default:
            return {MemberBit(StringIndexMember), MemberBit(StringIndexMember)};
    }
}

std::string NameAt(MemberRules rules, std::uint32_t bits) {
    return InQuotes(rules[static_cast<std::size_t>(std::countr_zero(bits))].name);
}

void Require(MemberRules rules, const MemberValues& values, std::uint32_t required, const std::string& what) {
    const std::uint32_t lacking = required & ~values.given;
    if (lacking != 0) FailInText(what + " has no " + NameAt(rules, lacking) + ". Add it.");
}

void CheckShape(const MemberValues& values, const EventShape& shape) {
    Require(EventRules, values, shape.required, "This event");
    const std::uint32_t odd = values.given & ~(AllEvents | shape.allowed);
    if (odd != 0) FailInText("An event of this action has no " + NameAt(EventRules, odd) + ". Remove it.");
}

void FillMouse(JobEvent& event, const EventAction& action, const MemberValues& values) {
    event.dwFlags() = values.Int32(FlagsMember, action.value);
    event.dx() = values.Int32(DxMember);
    event.dy() = values.Int32(DyMember);
    event.mouseData() = values.Int32(MouseDataMember);
    event.word[6] = values.Int32(ExtraInfoMember);
}

void FillKey(JobEvent& event, const EventAction& action, const MemberValues& values) {
    event.KeyState() = values.Int32(KeyStateMember, action.value);
    event.KeyCode() = static_cast<std::int32_t>(values.Number(ScanMember, 0) * 65536 + values.Number(KeyMember, 0));
    event.keyExtraInfo() = values.Int32(ExtraInfoMember);
}

JobEvent NamedEvent(const EventAction& action, const MemberValues& values) {
    CheckShape(values, ShapeOf(action));
    JobEvent event;
    event.dwType() = action.type;
    if (action.type == platform::InputMouse) {
        FillMouse(event, action, values);
    } else if (action.type == platform::InputKeyboard) {
        FillKey(event, action, values);
    } else {
        event.StringIndex() = values.Int32(StringIndexMember);
    }
    return event;
}

// Of no type that the program knows.
JobEvent UnknownEvent(std::int32_t type, const MemberValues& values) {
    JobEvent event;
    event.dwType() = type;
    if (ActionOf(event) != nullptr) {
        FailInText("The action " + std::to_string(type) + " has a name. Write the name, such as \"mouse\" or \"key\".");
    }
    CheckShape(values, {0, 0});
    return event;
}

const std::vector<std::int64_t>& FullList(const MemberValues& values, std::size_t member) {
    const MemberRule& rule = WindowRules[member];
    if (values.lists[member].size() != rule.width) {
        FailInText(InQuotes(rule.name) + " has " + std::to_string(rule.width) + " numbers. Write so many.");
    }
    return values.lists[member];
}

platform::Point PointOf(const MemberValues& values, std::size_t member) {
    if (!values.Has(member)) return {};
    const auto& list = FullList(values, member);
    return {static_cast<std::int32_t>(list[0]), static_cast<std::int32_t>(list[1])};
}

platform::Rect RectOf(const MemberValues& values, std::size_t member) {
    if (!values.Has(member)) return {};
    const auto& list = FullList(values, member);
    return {static_cast<std::int32_t>(list[0]), static_cast<std::int32_t>(list[1]), static_cast<std::int32_t>(list[2]),
            static_cast<std::int32_t>(list[3])};
}

std::size_t BytesMemberOf(MemberRules rules) {
    const auto found =
        std::find_if(rules.begin(), rules.end(), [](const MemberRule& rule) { return rule.kind == MemberKind::Bytes; });
    return static_cast<std::size_t>(found - rules.begin());
}

}  // namespace

const MemberRules EventRules = EventRuleList;
const MemberRules WindowRules = WindowRuleList;
const MemberRules ChainRules = ChainRuleList;
const MemberRules JobRules = JobRuleList;

JobEvent EventOf(const MemberValues& values) {
    Require(EventRules, values, MemberBits({TimeMember, ActionMember}), "This event");
    const std::int64_t action = values.numbers[ActionMember];
    JobEvent event = action >= NamedAction ? NamedEvent(ActionAt(action - NamedAction), values)
                                           : UnknownEvent(static_cast<std::int32_t>(action), values);
    event.time() = values.Int32(TimeMember);
    event.WindowChainIndex = values.Int32(ChainIndexMember, NoWindowMarker);
    event.WaitForWindow = values.Int32(WaitMember);
    event.IfNoWindow = static_cast<std::uint8_t>(values.Number(IfNoWindowMember, StopExecuting));
    return event;
}

WindowSignature WindowOf(const MemberValues& values) {
    Require(WindowRules, values, MemberBits({CaptionMember, ClassMember}), "This window");
    WindowSignature window;
    window.Caption = values.Text(CaptionMember);
    window.ClassName = values.Text(ClassMember);
    window.ControlId = values.Int32(ControlMember);
    window.Placement.length = values.UInt32(LengthMember);
    window.Placement.flags = values.UInt32(PlacementFlagsMember);
    window.Placement.showCmd = values.UInt32(ShowMember);
    window.Placement.ptMinPosition = PointOf(values, MinimisedMember);
    window.Placement.ptMaxPosition = PointOf(values, MaximisedMember);
    window.Placement.rcNormalPosition = RectOf(values, NormalMember);
    return window;
}

WindowChain ChainOf(const MemberValues& values) {
    Require(ChainRules, values, MemberBit(PathMember), "This chain");
    const std::vector<std::int64_t>& path = values.lists[PathMember];
    const auto levels = static_cast<std::int32_t>(path.size());
    WindowChain chain;
    std::transform(path.begin(), path.end(), chain.Path.begin(),
                   [](std::int64_t window) { return static_cast<std::int32_t>(window); });
    chain.LeafWindow = values.Int32(LeafMember, UsualLeaf(chain.Path, levels));
    chain.Depth = values.Int32(DepthMember, levels - 1);
    return chain;
}

JobHeader HeaderOf(const MemberValues& values) {
    Require(JobRules, values, MemberBits({FormatMember, CodePageMember, VersionMember}), "The text of the job");
    JobHeader header;
    header.Version = values.Int32(VersionMember);
    header.StartProgram.ProgramPath = values.Text(ProgramPathMember);
    header.StartProgram.CommandLine = values.Text(CommandLineMember);
    header.StartProgram.WindowStyle = static_cast<std::int16_t>(values.Number(WindowStyleMember, 0));
    header.Description = values.Text(DescriptionMember);
    header.DurationMs = values.Int32(DurationMember);
    header.SpeedPercent = values.Int32(SpeedMember, header.SpeedPercent);
    header.SkipMouseMoves = values.Int32(SkipMovesMember);
    header.CapsLockState = values.Int32(CapsLockMember);
    header.RepeatCount = values.Int32(RepeatMember, header.RepeatCount);
    header.SafetyLevel = values.Int32(SafetyMember);
    header.SimilarWindowNames = values.Int32(SimilarMember);
    return header;
}

template <class Record>
void ImageOf(const Record& record, MemberRules rules, const MemberValues& values, std::string& image) {
    Encode(record, image);
    const std::size_t member = BytesMemberOf(rules);
    if (!values.Has(member)) return;
    if (!PutBytes(values.texts[member], image)) {
        FailInText(
            "\"bytes\" are runs such as \"44:2061 60:00*8\" (from byte 44 of the record on: 20, 61), and end with "
            "the record. Mend or remove them.");
    }
    std::string meant;
    std::string told;
    Encode(Carried(record), meant);
    Encode(Carried(RecordOf<Record>(image)), told);
    if (told != meant) {
        FailInText("\"bytes\" contradict the other members here. Remove \"bytes\", or what was changed beside them.");
    }
}
template void ImageOf(const JobEvent&, MemberRules, const MemberValues&, std::string&);
template void ImageOf(const WindowSignature&, MemberRules, const MemberValues&, std::string&);
template void ImageOf(const WindowChain&, MemberRules, const MemberValues&, std::string&);
template void ImageOf(const JobHeader&, MemberRules, const MemberValues&, std::string&);

void FailInText(const std::string& sentence) {
    throw RuntimeFailure(FailureKind::File, sentence);
}

std::string InQuotes(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}
