"""A desktop for tests: a session bus of its own, notification services that are mocked or real, and programs whose
lines are read."""
import os
import plistlib
import pathlib
import queue
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

from display import on_display
from waiting import PATIENCE, wait_for

BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
NOTIFICATIONS = "org.freedesktop.Notifications"
NOTIFICATIONS_PATH = "/org/freedesktop/Notifications"
ALL_CAPABILITIES = "body body-markup actions"
INSTALLED = pathlib.Path(os.environ["HOME"], "installed-service")


class Process:
    """A program whose lines can be waited for and that is given lines."""

    def __init__(self, *command, env=None):
        self.process = subprocess.Popen([str(word) for word in command], text=True, env=env, bufsize=1,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.lines = queue.Queue()
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        for line in self.process.stdout:
            self.lines.put(line.rstrip("\n"))
        self.lines.put(None)

    def line(self):
        line = self.lines.get(timeout=PATIENCE)
        if line is None:
            raise AssertionError("the program has ended: " + self.process.stderr.read())
        return line

    def say(self, *words):
        self.process.stdin.write("\t".join(map(str, words)) + "\n")
        self.process.stdin.flush()

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.communicate()


class DesktopTest(unittest.TestCase):
    """A scratch directory, and what is started ends with the test. The bus is that of the process."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="dayward-test-", ignore_cleanup_errors=True)
        self.addCleanup(directory.cleanup)
        self.scratch = pathlib.Path(directory.name)
        self.home = self.scratch / "home"

    def run_beside(self, *command, env=None):
        process = Process(*command, env=env)
        self.addCleanup(process.end)
        return process

    def has_owner(self, name):
        return bool(call(*BUS, "NameHasOwner", name))

    def start_service(self, capabilities=ALL_CAPABILITIES, **properties):
        """A mocked notification service."""
        process = self.run_beside(*mock_command(capabilities))
        wait_for("the notification service", lambda: self.has_owner(NOTIFICATIONS))
        service = Service(process)
        for name, value in properties.items():
            service.mock("AddProperty", NOTIFICATIONS, name, value)
        return service

    def install_service(self, capabilities=ALL_CAPABILITIES):
        """A mocked notification service that the bus can start."""
        INSTALLED.write_text("#!/bin/sh\nexec " + shlex.join(mock_command(capabilities)) + "\n")
        INSTALLED.chmod(0o700)
        self.addCleanup(INSTALLED.unlink)

    def follow_badges(self):
        """Gives a function that waits for the next number on the application's icon."""
        monitor = self.run_beside("dbus-monitor", "--session", "interface='com.canonical.Unity.LauncherEntry'")
        while "NameLost" not in monitor.line():
            pass

        def next_badge():
            lines = []
            while not lines or "boolean" not in lines[-1]:
                lines.append(monitor.line().strip())
            self.assertIn('string "application://org.dayward.Dayward.desktop"', lines)
            number, = [int(line.split()[-1]) for line in lines if "int64" in line]
            self.assertEqual(lines[-1].split()[-1], "true" if number else "false")
            return number
        return next_badge


def call(name, path, interface, method, *arguments):
    import dbus
    remote = dbus.SessionBus().get_object(name, path, introspect=False)
    return remote.get_dbus_method(method, interface)(*arguments, timeout=PATIENCE)


def home_name(program, home):
    """The name on the bus of a program of that home, which is not the user's own."""
    mark = 0xcbf29ce484222325
    for byte in bytes(home / "state"):
        mark = (mark ^ byte) * 0x100000001b3 % 2 ** 64
    return f"org.dayward.{program}.h{mark:016x}"


def mock_command(capabilities):
    return [sys.executable, "-m", "dbusmock", "--logfile", os.devnull, "--template", "notification_daemon",
            "--parameters", '{"capabilities": "%s"}' % capabilities]


class Service:
    """The mocked service that runs."""

    def __init__(self, process=None):
        self.process = process

    def mock(self, method, *arguments):
        return call(NOTIFICATIONS, NOTIFICATIONS_PATH, "org.freedesktop.DBus.Mock", method, *arguments)

    def calls(self, method):
        """The arguments of each call, in order."""
        return [arguments for _, name, arguments in self.mock("GetCalls") if name == method]

    def bubbles(self):
        return [Sent(arguments) for arguments in self.calls("Notify")]

    def emit(self, signal, signature, *arguments):
        import dbus
        self.mock("EmitSignal", NOTIFICATIONS, signal, signature, dbus.Array(arguments, signature="v"))

    def tap(self, number, action="default", token=None):
        import dbus
        if token:
            self.emit("ActivationToken", "us", dbus.UInt32(number), token)
        self.emit("ActionInvoked", "us", dbus.UInt32(number), action)

    def end(self):
        self.process.end()

    def kill(self):
        number = call(*BUS, "GetConnectionUnixProcessID", NOTIFICATIONS)
        os.kill(number, signal.SIGKILL)


class Sent:
    """One Notify."""

    def __init__(self, arguments):
        program, self.replaces, self.icon, self.summary, self.body, actions, self.hints, self.time = arguments
        self.summary, self.body = str(self.summary), str(self.body)
        self.actions = dict(zip(map(str, actions[::2]), map(str, actions[1::2])))


def on_bus(needed=(), services=None, screen=None):
    """Runs this program again on a session bus of its own, with a display of that size where one is asked for; returns
    there, with the arguments. `services` gives the names and programs that the bus can start, from the arguments."""
    missing = [program for program in ("dbus-run-session", "dbus-monitor", *needed) if not shutil.which(program)]
    try:
        import dbusmock  # noqa: F401
    except ImportError:
        missing.append("python3-dbusmock")
    if missing:
        print("skipped: without " + ", ".join(missing))
        sys.exit(77)
    if sys.argv[-1] == "--inside":
        return sys.argv[1:-1]
    with tempfile.TemporaryDirectory(prefix="dayward-run-") as runtime:
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("DAYWARD", "XDG", "WAYLAND", "DISPLAY", "DBUS", "QT_", "LC_", "TZ"))}
        kept |= {"HOME": runtime, "XDG_RUNTIME_DIR": runtime, "XDG_DATA_HOME": f"{runtime}/.local/share",
                 "LC_ALL": "C.UTF-8", "TZ": "UTC"}
        directory = pathlib.Path(runtime, ".local/share/dbus-1/services")
        directory.mkdir(parents=True)
        # Whatever service is installed on this machine, here it is the one of a test or none.
        program = pathlib.Path(runtime, "service")
        program.write_text(f"#!/bin/sh\n[ -x {runtime}/{INSTALLED.name} ] && exec {runtime}/{INSTALLED.name}\nexit 1\n")
        program.chmod(0o700)
        started = {NOTIFICATIONS: program} | (services(sys.argv[1:]) if services else {})
        for name, program in started.items():
            (directory / f"{name}.service").write_text(f"[D-BUS Service]\nName={name}\nExec={program}\n")
        command = ["dbus-run-session", "--", sys.executable, *sys.argv, "--inside"]
        if screen:
            display_command, variables = on_display(screen, runtime)
            kept |= variables
            command = [*display_command, *command]
        sys.exit(subprocess.run(command, env=kept).returncode)


class Moment:
    """A date in an archive, by its seconds since 1970."""

    def __init__(self, seconds):
        self.seconds = seconds


def archived(root):
    """A keyed archive of dictionaries, lists, texts, numbers and moments."""
    objects, classes = ["$null"], {}

    def reference(value):
        objects.append(value)
        return plistlib.UID(len(objects) - 1)

    def class_named(name):
        if name not in classes:
            classes[name] = reference({"$classname": name, "$classes": [name, "NSObject"]})
        return classes[name]

    def put(value):
        if isinstance(value, Moment):
            return reference({"NS.time": value.seconds - 978307200.0, "$class": class_named("NSDate")})
        if isinstance(value, dict):
            keys, values = [put(key) for key in value], [put(entry) for entry in value.values()]
            return reference({"NS.keys": keys, "NS.objects": values, "$class": class_named("NSDictionary")})
        if isinstance(value, list):
            return reference({"NS.objects": [put(entry) for entry in value], "$class": class_named("NSArray")})
        return reference(value)

    top = put(root)
    return plistlib.dumps({"$archiver": "NSKeyedArchiver", "$version": 100000, "$top": {"root": top},
                           "$objects": objects}, fmt=plistlib.FMT_BINARY)


class DrivenAgent:
    """The agent of a home on the desktop, with a clock that is driven."""

    def __init__(self, test, program, now, *options, env=None):
        self.number = 0
        self.clock = test.scratch / f"clock-{time.monotonic_ns()}"
        self.drive("jump", now)
        self.process = test.run_beside(program, *options, "--driven-clock", self.clock, "--on-desktop", env=env)
        self.wait()

    def drive(self, how, seconds):
        self.number += 1
        new = self.clock.with_suffix(".new")
        new.write_text(f"{self.number} {how} {seconds}\n")
        new.rename(self.clock)

    def wait(self):
        while self.process.line() != f"done {self.number}":
            pass

    def pass_to(self, seconds):
        """The time goes by."""
        self.drive("pass", seconds)
        self.wait()

    def jump_to(self, seconds):
        """The device slept, or its clock was set."""
        self.drive("jump", seconds)
        self.wait()


def write_schedule(state, scheduled, now):
    """The schedule of a home, given its state directory, as a fetch of just now left it: it stands for no events."""
    state.mkdir(parents=True, exist_ok=True)
    (state / "notifications.schedule").write_bytes(archived(
        {"version": 1, "scheduled": scheduled, "snoozed": [], "withdrawn": [], "badgeNumber": 0,
         "needsRebuild": False}))
    (state / "notifications.delivered").write_bytes(archived(
        {"version": 1, "recent": [], "earlier": "", "fetched": Moment(now)}))


def alert(body, due, owner="E-1", **more):
    return {"fireDate": Moment(due), "alertBody": body, "userInfo": {"objectKey": owner}, **more}
