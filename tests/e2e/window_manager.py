"""Does to a window what a window manager does when the user closes it: `close WINDOW` asks the
program to close it (WM_DELETE_WINDOW), `destroy WINDOW` destroys it outright.

With a third argument WIDTHxHEIGHT it first waits (at most 30 s) for a window of that size to
show, acts the moment one does, and fails when that window had gone again before the request
reached the window system."""
import select
import sys

from Xlib import X, display, error
from Xlib.protocol import event

d = display.Display()


def first_shown(size):
    d.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
    d.sync()
    while d.pending_events() or select.select([d.fileno()], [], [], 30)[0]:
        e = d.next_event()
        try:
            if e.type == X.MapNotify:
                g = e.window.get_geometry()
                if f"{g.width}x{g.height}" == size:
                    return e.window
        except error.XError:  # gone as soon as it came
            pass
    sys.exit(f"no window of {size} showed")


how, target = sys.argv[1], d.create_resource_object("window", int(sys.argv[2], 0))
box = first_shown(sys.argv[3]) if len(sys.argv) > 3 else None
if how == "close":
    target.send_event(event.ClientMessage(
        window=target, client_type=d.intern_atom("WM_PROTOCOLS"),
        data=(32, [d.intern_atom("WM_DELETE_WINDOW"), X.CurrentTime, 0, 0, 0])))
else:
    target.destroy()
d.sync()
if box is not None and box.get_attributes().map_state != X.IsViewable:
    sys.exit(f"the window of {sys.argv[3]} had gone before the {how} arrived")
