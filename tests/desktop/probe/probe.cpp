// The eyes of the desktop tests: reads commands from standard input, one a line, looks at the windows of the desktop
// and answers with one line of JSON each. It shares no code with the program that it watches.
//
// Started as "probe.exe hang CAPTION" it shows a window and then never answers a message again.

#include <windows.h>

#include <commctrl.h>
#include <oleacc.h>

#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Words = std::istringstream;

std::string Quoted(const std::string& text) {
    std::string json = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        char escaped[8];
        std::snprintf(escaped, sizeof escaped,
                      byte < 32 || byte > 126 || byte == '"' || byte == '\\' ? "\\u%04x" : "%c", byte);
        json += escaped;
    }
    return json + "\"";
}

std::string Number(long long value) {
    return std::to_string(value);
}

HWND WindowFrom(Words& words) {
    long long value = 0;
    words >> value;
    return reinterpret_cast<HWND>(value);
}

long long HandleNumber(HWND window) {
    return static_cast<long long>(reinterpret_cast<INT_PTR>(window));
}

std::string RestOf(Words& words) {
    std::string rest;
    std::getline(words >> std::ws, rest);
    return rest;
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, 5000, &answer);
    return static_cast<LRESULT>(answer);
}

std::string TextOf(HWND window) {
    std::vector<char> buffer(1 << 20);
    const auto length = Ask(window, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    return std::string(buffer.data(), static_cast<std::size_t>(length));
}

std::string RectangleText(const RECT& rectangle) {
    return "[" + Number(rectangle.left) + "," + Number(rectangle.top) + "," + Number(rectangle.right) + "," +
           Number(rectangle.bottom) + "]";
}

// For a child of another process Wine tells screen pixels where Windows tells the parent's client pixels.
void CorrectChild(HWND window, WINDOWPLACEMENT& place) {
    if ((GetWindowLongA(window, GWL_STYLE) & WS_CHILD) == 0) return;
    GetWindowRect(window, &place.rcNormalPosition);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place.rcNormalPosition), 2);
}

std::string PlacementText(HWND window) {
    WINDOWPLACEMENT place{};
    place.length = sizeof place;
    GetWindowPlacement(window, &place);
    CorrectChild(window, place);
    return "{\"flags\":" + Number(place.flags) + ",\"show\":" + Number(place.showCmd) + ",\"min\":[" +
           Number(place.ptMinPosition.x) + "," + Number(place.ptMinPosition.y) + "],\"max\":[" +
           Number(place.ptMaxPosition.x) + "," + Number(place.ptMaxPosition.y) +
           "],\"normal\":" + RectangleText(place.rcNormalPosition) + "}";
}

std::string Describe(HWND window) {
    char className[100] = "";
    char caption[1024] = "";
    GetClassNameA(window, className, sizeof className);
    GetWindowTextA(window, caption, sizeof caption);
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return "{\"handle\":" + Number(HandleNumber(window)) + ",\"parent\":" + Number(HandleNumber(GetParent(window))) +
           ",\"class\":" + Quoted(className) + ",\"caption\":" + Quoted(caption) +
           ",\"id\":" + Number(GetDlgCtrlID(window)) + ",\"rect\":" + RectangleText(rectangle) +
           ",\"visible\":" + (IsWindowVisible(window) ? "true" : "false") +
           ",\"enabled\":" + (IsWindowEnabled(window) ? "true" : "false") + ",\"process\":" + Number(process) +
           ",\"exstyle\":" + Number(GetWindowLongA(window, GWL_EXSTYLE)) + ",\"placement\":" + PlacementText(window) +
           "}";
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::string AllWindows() {
    std::vector<HWND> tops;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&tops));
    std::vector<HWND> all;
    for (const HWND top : tops) {
        all.push_back(top);
        EnumChildWindows(top, Collect, reinterpret_cast<LPARAM>(&all));
    }
    std::string json = "[";
    for (const HWND window : all) json += (json.size() > 1 ? "," : "") + Describe(window);
    return json + "]";
}

HWND FocusedWindow() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(0, &info);
    return info.hwndFocus;
}

std::string KeysDown() {
    std::string json = "[";
    for (int key = 1; key < 255; ++key) {
        if (GetAsyncKeyState(key) < 0) json += (json.size() > 1 ? "," : "") + Number(key);
    }
    return json + "]";
}

// place WINDOW HOW LEFT TOP RIGHT BOTTOM; in parts, as Wine refuses SetWindowPlacement for windows of other processes.
std::string Place(Words& words) {
    const HWND window = WindowFrom(words);
    int how = 0;
    RECT place{};
    words >> how >> place.left >> place.top >> place.right >> place.bottom;
    ShowWindow(window, how);
    return Number(SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE));
}

// copydata WINDOW dwData cbData null|TEXT
std::string CopyData(Words& words) {
    const HWND window = WindowFrom(words);
    unsigned long long kind = 0;
    unsigned long size = 0;
    words >> kind >> size;
    std::string bytes = RestOf(words);
    const bool null = bytes == "null";
    if (!null) bytes.resize(size);
    COPYDATASTRUCT data{kind, size, null ? nullptr : bytes.data()};
    return Number(Ask(window, WM_COPYDATA, 1, reinterpret_cast<LPARAM>(&data)));
}

// Asked in wide characters: across processes Wine answers the narrow question with wide text.
std::string ListLine(Words& words) {
    const HWND window = WindowFrom(words);
    WPARAM index = 0;
    words >> index;
    std::vector<wchar_t> wide(4096);
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, LB_GETTEXT, index, reinterpret_cast<LPARAM>(wide.data()), SMTO_ABORTIFHUNG, 5000,
                        &length);
    if (static_cast<LRESULT>(length) < 0) return "null";
    char text[4096] = "";
    WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, text, sizeof text, nullptr, nullptr);
    return Quoted(text);
}

// send WINDOW MESSAGE wParam lParam, post WINDOW MESSAGE wParam lParam
template <class Deliver>
std::string DeliverNumbers(Words& words, const Deliver& deliver) {
    const HWND window = WindowFrom(words);
    UINT message = 0;
    long long wParam = 0;
    long long lParam = 0;
    words >> message >> wParam >> lParam;
    return Number(deliver(window, message, static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam)));
}

std::string SetText(Words& words) {
    const HWND window = WindowFrom(words);
    std::string text = RestOf(words);
    for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos; ++at) text.replace(at, 2, "\r\n");
    return Number(Ask(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

std::string Show(Words& words) {
    const HWND window = WindowFrom(words);
    int how = 0;
    words >> how;
    return Number(ShowWindow(window, how));
}

std::string ClientToScreenOf(Words& words) {
    const HWND window = WindowFrom(words);
    POINT point{};
    words >> point.x >> point.y;
    ClientToScreen(window, &point);
    return "[" + Number(point.x) + "," + Number(point.y) + "]";
}

// --- a report list, which answers into the memory of its own process ---

// So many values there. Each crossing costs time: they go over and come back together.
template <class Value>
class RemoteValues {
public:
    RemoteValues(HWND window, std::size_t count) : values(count) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
        memory = static_cast<Value*>(VirtualAllocEx(process, nullptr, Size(), MEM_COMMIT, PAGE_READWRITE));
    }
    ~RemoteValues() {
        VirtualFreeEx(process, memory, 0, MEM_RELEASE);
        CloseHandle(process);
    }
    RemoteValues(const RemoteValues&) = delete;
    RemoteValues& operator=(const RemoteValues&) = delete;

    Value* There(std::size_t index) const { return memory + index; }
    void Send() { WriteProcessMemory(process, memory, values.data(), Size(), nullptr); }
    void Fetch() { ReadProcessMemory(process, memory, values.data(), Size(), nullptr); }

    std::vector<Value> values;

private:
    SIZE_T Size() const { return values.size() * sizeof(Value); }
    HANDLE process = nullptr;
    Value* memory = nullptr;
};

struct Cell {
    LVITEMA item;
    char text[256];
};

// grid WINDOW: of each row its cells and its state.
std::string Grid(Words& words) {
    const HWND list = WindowFrom(words);
    const auto rows = static_cast<std::size_t>(Ask(list, LVM_GETITEMCOUNT, 0, 0));
    const HWND header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER, 0, 0));
    const auto columns = static_cast<std::size_t>(Ask(header, HDM_GETITEMCOUNT, 0, 0));
    RemoteValues<Cell> cells(list, rows * columns + 1);
    for (std::size_t i = 0; i < rows * columns; ++i) {
        LVITEMA& item = cells.values[i].item;
        item.iSubItem = static_cast<int>(i % columns);
        item.pszText = cells.There(i)->text;
        item.cchTextMax = sizeof cells.values[i].text;
    }
    cells.Send();
    for (std::size_t i = 0; i < rows * columns; ++i) {
        Ask(list, LVM_GETITEMTEXTA, i / columns, reinterpret_cast<LPARAM>(&cells.There(i)->item));
    }
    cells.Fetch();
    std::string json;
    for (std::size_t row = 0; row < rows; ++row) {
        std::string texts;
        for (std::size_t column = 0; column < columns; ++column) {
            texts += (column > 0 ? "," : "") + Quoted(cells.values[row * columns + column].text);
        }
        const LRESULT state = Ask(list, LVM_GETITEMSTATE, row, LVIS_SELECTED | LVIS_FOCUSED);
        json += (row > 0 ? "," : "") + ("{\"cells\":[" + texts + "],\"state\":" + Number(state) + "}");
    }
    return "[" + json + "]";
}

// gridplace WINDOW ROW: of a row, on the screen.
std::string GridPlace(Words& words) {
    const HWND list = WindowFrom(words);
    WPARAM row = 0;
    words >> row;
    RemoteValues<RECT> place(list, 1);
    place.values[0].left = LVIR_BOUNDS;
    place.Send();
    Ask(list, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(place.There(0)));
    place.Fetch();
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(place.values.data()), 2);
    return RectangleText(place.values[0]);
}

// --- as a screen reader asks ---

std::string NarrowText(BSTR wide) {
    char text[1024] = "";
    if (wide != nullptr) WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr);
    SysFreeString(wide);
    return text;
}

VARIANT Part(long number) {
    VARIANT part{};
    part.vt = VT_I4;
    part.lVal = number;
    return part;
}

std::string AccessiblePart(IAccessible* object, long number) {
    BSTR texts[4] = {};
    VARIANT role{};
    VARIANT state{};
    RECT place{};
    object->get_accName(Part(number), &texts[0]);
    object->get_accDescription(Part(number), &texts[1]);
    object->get_accDefaultAction(Part(number), &texts[2]);
    object->get_accValue(Part(number), &texts[3]);
    object->get_accRole(Part(number), &role);
    object->get_accState(Part(number), &state);
    object->accLocation(&place.left, &place.top, &place.right, &place.bottom, Part(number));
    return "{\"name\":" + Quoted(NarrowText(texts[0])) + ",\"description\":" + Quoted(NarrowText(texts[1])) +
           ",\"action\":" + Quoted(NarrowText(texts[2])) + ",\"value\":" + Quoted(NarrowText(texts[3])) +
           ",\"role\":" + Number(role.vt == VT_I4 ? role.lVal : -1) +
           ",\"state\":" + Number(state.vt == VT_I4 ? state.lVal : -1) + ",\"place\":" + RectangleText(place);
}

// MinGW's IID_IAccessible is that of another interface.
IAccessible* AccessibleOf(HWND window) {
    void* object = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object);
    return static_cast<IAccessible*>(object);
}

// accessible WINDOW: the control and its parts.
std::string AccessibleText(Words& words) {
    IAccessible* const object = AccessibleOf(WindowFrom(words));
    if (object == nullptr) return "null";
    long count = 0;
    object->get_accChildCount(&count);
    std::string json = AccessiblePart(object, CHILDID_SELF) + ",\"parts\":[";
    for (long part = 1; part <= count; ++part) json += (part > 1 ? "," : "") + AccessiblePart(object, part) + "}";
    object->Release();
    return json + "]}";
}

// select WINDOW PART: what it answered.
std::string SelectPart(Words& words) {
    IAccessible* const object = AccessibleOf(WindowFrom(words));
    if (object == nullptr) return "null";
    long part = 0;
    words >> part;
    const HRESULT result = object->accSelect(SELFLAG_TAKESELECTION, Part(part));
    object->Release();
    return Number(result);
}

std::string Answer(const std::string& command, Words& words) {
    if (command == "windows") return AllWindows();
    if (command == "foreground") return Number(HandleNumber(GetForegroundWindow()));
    if (command == "focus") return Number(HandleNumber(FocusedWindow()));
    if (command == "front") return Number(SetForegroundWindow(WindowFrom(words)));
    if (command == "keys") return KeysDown();
    if (command == "text") return Quoted(TextOf(WindowFrom(words)));
    if (command == "settext") return SetText(words);
    if (command == "place") return Place(words);
    if (command == "show") return Show(words);
    if (command == "screen") return ClientToScreenOf(words);
    if (command == "line") return ListLine(words);
    if (command == "grid") return Grid(words);
    if (command == "gridplace") return GridPlace(words);
    if (command == "send") return DeliverNumbers(words, Ask);
    if (command == "post") return DeliverNumbers(words, PostMessageA);
    if (command == "copydata") return CopyData(words);
    if (command == "accessible") return AccessibleText(words);
    if (command == "select") return SelectPart(words);
    return "null";
}

int Hang(const char* caption) {
    const HWND window = CreateWindowA("STATIC", caption, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 700, 500, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
    UpdateWindow(window);
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    Sleep(INFINITE);
    return 0;
}

}  // namespace

int main(int count, char** words) {
    if (count == 3 && std::string(words[1]) == "hang") return Hang(words[2]);
    SetProcessDPIAware();
    CoInitialize(nullptr);
    std::string line;
    while (std::getline(std::cin, line)) {
        while (!line.empty() && line.back() == '\r') line.pop_back();
        Words rest(line);
        std::string command;
        rest >> command;
        if (command == "exit") break;
        std::cout << Answer(command, rest) << std::endl;
    }
    return 0;
}
