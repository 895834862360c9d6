"""Several monitors on one X display: RandR's monitors, which Wine learns of through the Xinerama extension."""

from Xlib import display
from Xlib.ext import randr
from Xlib.protocol import rq


class _SetMonitor(rq.Request):
    """RRSetMonitor; the library's own form of it cannot be sent."""

    _request = rq.Struct(
        rq.Card8("opcode"), rq.Opcode(43), rq.RequestLength(), rq.Window("window"), rq.Card32("name"),
        rq.Card8("primary"), rq.Card8("automatic"), rq.LengthOf("outputs", 2), rq.Int16("x"), rq.Int16("y"),
        rq.Card16("width"), rq.Card16("height"), rq.Card32("width_in_mm"), rq.Card32("height_in_mm"),
        rq.List("outputs", rq.Card32Obj),
    )


def _move_to_origin(monitors):
    """What a display calls them: its own corner is the upper left one of all."""
    left, top = min(monitor[0] for monitor in monitors), min(monitor[1] for monitor in monitors)
    return [(x1 - left, y1 - top, x2 - left, y2 - top) for x1, y1, x2, y2 in monitors]


def display_size(monitors):
    """The size of the screen that holds these rectangles (left, top, right, bottom)."""
    rectangles = _move_to_origin(monitors)
    return max(r for _, _, r, _ in rectangles), max(b for _, _, _, b in rectangles)


def set_monitors(display_name, monitors):
    """Divides the screen of a display; the first monitor is the primary one. Holds until the connection that this
    returns is closed: a display forgets everything when nobody is connected to it."""
    connection = display.Display(display_name)
    root = connection.screen().root
    outputs = list(root.xrandr_get_screen_resources().outputs)
    opcode = connection.display.get_extension_major(randr.extname)
    for number, (left, top, right, bottom) in enumerate(_move_to_origin(monitors)):
        _SetMonitor(
            display=connection.display, opcode=opcode, window=root,
            name=connection.intern_atom(f"monitor {number}"), primary=number == 0, automatic=0,
            x=left, y=top, width=right - left, height=bottom - top,
            width_in_mm=(right - left) // 4, height_in_mm=(bottom - top) // 4,
            outputs=outputs if number == 0 else [],
        )
    connection.sync()
    return connection
