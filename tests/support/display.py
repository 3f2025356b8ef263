"""A display for tests of whole programs: its server, its window manager, its pixels."""
import array
import collections
import os
import pathlib

from waiting import wait_for

NEEDED = ("Xvfb", "xvfb-run", "xdotool", "openbox")
SCREEN = "DAYWARD_TEST_SCREEN"


def on_display(size, directory):
    """The command that runs another one on a display, and the environment of that one. The server is not reset when
    its last client leaves: another that connects meanwhile would be turned away."""
    return (["xvfb-run", "-a", "-s", f"-screen 0 {size}x24 -noreset -fbdir {directory}"],
            {SCREEN: str(directory), "QT_QPA_PLATFORM": "xcb"})


def start_window_manager(run_beside, scratch):
    """Until it manages windows, in place of the one of the test before."""
    ready = scratch / "window-manager"
    run_beside("openbox", "--replace", "--sm-disable", "--startup", f"touch {ready}")
    wait_for("the window manager", ready.exists)


def colors():
    """How many pixels of each colour the display shows."""
    screen = pathlib.Path(os.environ[SCREEN], "Xvfb_screen0").read_bytes()
    return collections.Counter(array.array("I", screen[:len(screen) // 4 * 4]))


def magenta():
    """How many pixels are between white and pure magenta, where the gradient over a background puts them."""
    channels = ((color >> 16 & 255, color >> 8 & 255, color & 255, count) for color, count in colors().items())
    return sum(count for red, green, blue, count in channels if red == blue and red > green + 40)
