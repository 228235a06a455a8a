#!/usr/bin/env python3
"""The player bot: plays Grevan with real X mouse and key events at a person's pace.

It knows what a person at the screen knows. Where the opponents and the hero stand it learns
from the lines an observer script prints on the game's standard output ("observe: ...", see
README.md); where its cross-hair is it sees on the screen, as the green sight drawn in the game
window. Its hand reacts no sooner than 150 ms after it has seen something, moves the pointer in
steps no faster than a hand, and clicks at most five times a second.

Usage: playerbot.py --log GAME_STDOUT --map MAP_FILE [options] STEP...
Steps, run in order: go (wait until the controls are the player's), mouse (check that the sight
follows the hand), gun, pistol, reload, jump, walk:left:SECONDS, walk:right:SECONDS,
fight:COUNT (shoot until COUNT opponents have fallen; 1 when left out)."""

import argparse
import random
import subprocess
import sys
import time

from observer import Observer
from xsession import XSession

GREEN = b"\x00\xff\x00"  # the sight's colour as a BGRX pixel's first three bytes
REST_DIVERGENCE = 5  # pixels between the sight's centre and its arms when it has settled
# Where the bot aims, in pixels above a player's centre (a player is 48 pixels tall).
AIM_HEIGHTS = {"head": 18, "chest": 8, "belly": 0}
WEAPON_KEYS = {"gun": "1", "pistol": "2"}


class Camera:
    """Where a level point shows in the window: the game centres its view on the hero and stops
    at the level's edges."""

    def __init__(self, level_width, level_height, view_width, view_height):
        self.level = (level_width, level_height)
        self.view = (view_width, view_height)

    def _corner(self, hero_axis, view_size, level_size):
        corner = max(hero_axis - view_size // 2, 0)
        return level_size - view_size if corner + view_size > level_size else corner

    def to_view(self, hero, point):
        cx = self._corner(hero[0], self.view[0], self.level[0])
        cy = self._corner(hero[1], self.view[1], self.level[1])
        return point[0] - cx, point[1] - cy


class Eye:
    """Finds the green sight in the game window. The sight is four arms of 6 pixels around its
    centre, so the centre is the row shared by the two level arms and the column shared by the
    two upright ones; the gap between them is its divergence, which closes to 5 once the sight
    has settled after a kick."""

    def __init__(self, session, window, width, height):
        self._session, self._window = session, window
        self._size = (width, height)
        self.last = None  # the last look: (data, stride)

    def look(self):
        grabbed = self._session.grab(self._window, *self._size)
        if grabbed:
            self.last = grabbed
        return grabbed

    def sight(self):
        """(x, y, divergence) in window pixels, or None when no sight is drawn (a speech bubble
        hides it)."""
        grabbed = self.look()
        if not grabbed:
            return None
        data, stride = grabbed
        rows, columns = {}, {}
        start = data.find(GREEN)
        while start >= 0:
            if start % 4 == 0:
                y, x = divmod(start // 4, stride // 4)
                rows.setdefault(y, []).append(x)
                columns.setdefault(x, []).append(y)
            start = data.find(GREEN, start + 1)
        if not rows:
            return None
        y, xs = max(rows.items(), key=lambda item: len(item[1]))
        x = max(columns, key=lambda column: len(columns[column]))
        # The left arm's inner end lies the divergence away from the centre.
        left = max((v for v in xs if v < x), default=x - REST_DIVERGENCE)
        return x, y, x - left


class Hand:
    """Moves the pointer and presses buttons and keys, no faster than a person."""

    def __init__(self, session, window, speed, reaction):
        self._session = session
        self._origin = session.window_origin(window)
        self._speed = speed  # pixels a second
        self._reaction = reaction  # seconds
        self._last_press = 0.0
        self._last_change = 0.0
        self.presses = 0
        self.held = 0.0  # seconds the fire button was down

    def react(self):
        """The pause between seeing and acting: the reaction time and a little more."""
        time.sleep(self._reaction + random.uniform(0.0, 0.05))

    def place(self, x, y):
        """Puts the pointer on a window point in one motion, as a hand bringing the mouse in."""
        self._session.move_pointer(self._origin[0] + x, self._origin[1] + y)

    def shift(self, dx, dy):
        """Moves the pointer by (dx, dy) as a hand moves a mouse: a smooth stroke that starts
        and ends slowly (the minimum-jerk profile of a person's reach) with its peak at the hand's
        speed, reported in small relative steps at a USB mouse's 125 reports a second."""
        report = 0.008
        distance = max(abs(dx), abs(dy))
        duration = max(0.1, 1.875 * distance / self._speed)
        reports = max(1, int(duration / report))
        done_x = done_y = 0
        for i in range(1, reports + 1):
            t = i / reports
            share = t * t * t * (10 - 15 * t + 6 * t * t)
            step_x, step_y = round(dx * share) - done_x, round(dy * share) - done_y
            if step_x or step_y:
                self._session.nudge_pointer(step_x, step_y)
                done_x, done_y = done_x + step_x, done_y + step_y
            time.sleep(report)

    def press(self):
        """Presses the left button, waiting first so that presses are 0.2 s apart at least."""
        wait = self._last_press + 0.2 - time.monotonic()
        if wait > 0:
            time.sleep(wait)
        self._last_press = time.monotonic()
        self._change(self._session.button, 1, True)
        self.presses += 1

    def release(self):
        self._change(self._session.button, 1, False)
        self.held += time.monotonic() - self._last_press

    def tap(self, seconds):
        self.press()
        time.sleep(seconds)
        self.release()

    def key(self, name, seconds=0.15):
        """A key held long enough for a slow frame to see it."""
        self._change(self._session.key, name, True)
        time.sleep(seconds)
        self._change(self._session.key, name, False)

    def hold(self, name, down):
        """Presses (down) or lets go of a key and leaves it so."""
        self._change(self._session.key, name, down)

    def _change(self, send, name, down):
        """Sends a key or button change, a tenth of a second after the one before at the
        soonest: the game acts on only the last change of a frame, and a hand letting go of one
        key and pressing the next takes about that long anyway."""
        wait = self._last_change + 0.1 - time.monotonic()
        if wait > 0:
            time.sleep(wait)
        send(name, down)
        self._last_change = time.monotonic()


class Bot:
    def __init__(self, args):
        self.args = args
        self.session = XSession()
        self.window = args.window or find_window(args.title)
        width, height = window_size(self.window)
        level = read_level_size(args.map)
        self.camera = Camera(level[0], level[1], width, height)
        self.observer = Observer(args.log)
        self.eye = Eye(self.session, self.window, width, height)
        self.hand = Hand(self.session, self.window, args.hand_speed, args.reaction / 1000.0)
        self.weapon = "weapon in hand"
        # The pointer starts over the window, so that keys and buttons reach it.
        self.hand.place(width // 2, height // 2)

    def say(self, text):
        print("bot: " + text, flush=True)

    def wait(self, condition, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.observer.poll()
            if condition():
                return True
            time.sleep(0.05)
        return False

    def step_go(self):
        if not self.wait(lambda: self.observer.go and self.observer.hero, self.args.timeout):
            raise SystemExit("bot: the controls never became mine")
        self.hand.react()
        # Motion while the controls were locked moved no sight: a wiggle shows where it is.
        self.hand.shift(4, 0)
        self.hand.shift(-4, 0)

    def step_weapon(self, name):
        self.hand.key(WEAPON_KEYS[name])
        self.weapon = name
        self.hand.react()

    def settled_sight(self):
        """The sight once two looks a fifth of a second apart agree; None if none shows."""
        seen = self.eye.sight()
        for _ in range(20):
            time.sleep(0.2)
            again = self.eye.sight()
            if again == seen:
                return seen
            seen = again
        return seen

    def step_mouse(self):
        """Strokes the mouse 150 pixels across and back while the sight rests, and says how much
        of the hand's motion the sight followed; fails below nine tenths, which a person feels as
        a sluggish mouse."""
        shares = []
        start = self.settled_sight()
        if start is None:
            raise SystemExit("bot: no sight on the screen")
        stroke = 150 if start[0] < self.camera.view[0] // 2 else -150
        for dx in (stroke, -stroke):
            before = self.settled_sight()
            self.hand.shift(dx, 0)
            after = self.settled_sight()
            shares.append((after[0] - before[0]) / dx)
        self.say("the sight followed %s of the hand's strokes"
                 % " and ".join("%d%%" % round(100 * share) for share in shares))
        if min(shares) < 0.9:
            raise SystemExit(1)
        self.hand.react()

    def step_walk(self, direction, seconds):
        self.hand.key("a" if direction == "left" else "d", seconds)

    def aim_point(self, foe):
        """Where the foe's chosen part shows in the window, as the observer last told; None once
        the foe is no longer reported standing."""
        self.observer.poll()
        if foe not in self.observer.foes:
            return None
        x, y = self.observer.foes[foe]
        return self.to_view((x, y - AIM_HEIGHTS[self.args.aim]))

    def to_view(self, point):
        """Where a level point shows in the window."""
        return self.camera.to_view(self.observer.hero, point)

    def correct(self, seen, target):
        """Moves the hand from the sight seen to the target, then waits until the screen shows
        the move (a frame or two later) so that the next look does not see the old place."""
        self.hand.shift(target[0] - seen[0], target[1] - seen[1])
        end = time.monotonic() + 0.3
        while time.monotonic() < end:
            now = self.eye.sight()
            if now and now[:2] != seen[:2]:
                return
            time.sleep(0.01)

    def aim(self, foe):
        """Brings the sight onto the foe: looks, reacts, moves, until it rests there (a careful
        player lets the arms close after a kick). False when the foe went or no sight shows."""
        tolerance = self.args.tolerance
        for _ in range(20):
            target = self.aim_point(foe)
            if target is None:
                return False
            seen = self.eye.sight()
            self.hand.react()
            if seen is None:
                return False
            on = abs(target[0] - seen[0]) <= tolerance and abs(target[1] - seen[1]) <= tolerance
            if on and seen[2] <= self.args.steady:
                return True
            if not on:
                self.correct(seen, target)
        return False

    def shoot(self, foe):
        """One tap, or one burst in which the hand keeps correcting the aim."""
        if self.args.burst <= 0:
            self.hand.tap(self.args.tap / 1000.0)
            return
        self.hand.press()
        end = time.monotonic() + self.args.burst / 1000.0
        while time.monotonic() < end:
            seen = self.eye.sight()
            self.hand.react()
            target = self.aim_point(foe)
            if seen is None or target is None or time.monotonic() >= end:
                break
            self.hand.shift(target[0] - seen[0], target[1] - seen[1])
        self.hand.release()

    def step_fight(self, count):
        """Shoots at the nearest opponent the observer reports until COUNT have fallen; says how
        long each took from the first shot. A speech bubble hides the sight: a click closes it."""
        began = time.monotonic()
        fallen = 0
        while fallen < count:
            if time.monotonic() - began > self.args.timeout:
                self.say("%s: gave up after %.1f s, %d fallen"
                         % (self.weapon, self.args.timeout, fallen))
                raise SystemExit(1)
            if not self.wait(lambda: self.observer.foes, 1.0):
                continue
            hero_x = self.observer.hero[0]
            foe = min(self.observer.foes, key=lambda f: abs(self.observer.foes[f][0] - hero_x))
            first, presses, held = None, self.hand.presses, self.hand.held
            while foe in self.observer.foes and time.monotonic() - began <= self.args.timeout:
                if self.aim(foe):
                    first = first or time.monotonic()
                    self.shoot(foe)
                elif self.eye.sight() is None:
                    self.hand.tap(self.args.tap / 1000.0)
            if foe in self.observer.down:
                fallen += 1
                self.say("%s: foe %d down after %.1f s of fire, %d presses, %.2f s held"
                         % (self.weapon, foe, time.monotonic() - (first or time.monotonic()),
                            self.hand.presses - presses, self.hand.held - held))

    def run(self, steps):
        for step in steps:
            parts = step.split(":")
            if parts[0] == "go":
                self.step_go()
            elif parts[0] in WEAPON_KEYS:
                self.step_weapon(parts[0])
            elif parts[0] == "mouse":
                self.step_mouse()
            elif parts[0] == "reload":
                self.hand.key("r")
            elif parts[0] == "jump":
                self.hand.key("w")
            elif parts[0] == "walk" and len(parts) == 3:
                self.step_walk(parts[1], float(parts[2]))
            elif parts[0] == "fight":
                self.step_fight(int(parts[1]) if len(parts) > 1 else 1)
            else:
                raise SystemExit("bot: unknown step " + step)


def find_window(title):
    found = subprocess.run(["xdotool", "search", "--name", "^%s$" % title],
                           capture_output=True, text=True).stdout.split()
    if not found:
        raise SystemExit("bot: no window titled " + title)
    return int(found[0])


def window_size(window):
    shape = subprocess.run(["xdotool", "getwindowgeometry", "--shell", str(window)],
                           capture_output=True, text=True).stdout
    values = dict(line.split("=", 1) for line in shape.split())
    return int(values["WIDTH"]), int(values["HEIGHT"])


def read_level_size(path):
    """A map file's second and third fields: the level's width and height."""
    with open(path) as map_file:
        fields = map_file.read().split()
    return int(fields[1]), int(fields[2])


def options(description):
    """The options of the bot's hand and eye, shared by the tools that drive it."""
    parser = argparse.ArgumentParser(description=description,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--log", required=True, help="the game's standard output, as a file")
    parser.add_argument("--window", type=int, help="the game window's id")
    parser.add_argument("--title", default="Collision Test", help="or its title")
    parser.add_argument("--aim", choices=sorted(AIM_HEIGHTS), default="chest")
    parser.add_argument("--tap", type=int, default=100, help="ms the button is down for a tap")
    parser.add_argument("--burst", type=int, default=0,
                        help="ms the button is held for a burst; 0 taps instead")
    parser.add_argument("--tolerance", type=int, default=3,
                        help="pixels the sight may be off the aim point when firing")
    parser.add_argument("--steady", type=int, default=REST_DIVERGENCE,
                        help="fire once the sight's arms are this close to its centre (5: at rest)")
    parser.add_argument("--reaction", type=int, default=150, help="reaction time in ms (>= 150)")
    parser.add_argument("--hand-speed", type=int, default=1200, help="pointer pixels a second")
    parser.add_argument("--timeout", type=float, default=120.0, help="seconds a step may take")
    parser.add_argument("--seed", type=int, help="for the random parts of the reaction")
    return parser


def parse(parser):
    """The arguments, refused where they ask for more than a person's hand."""
    args = parser.parse_args()
    if args.reaction < 150:
        parser.error("a person reacts in 150 ms at the soonest")
    if args.hand_speed > 2500:
        parser.error("a hand moving a mouse with care peaks below 2500 pixels a second")
    random.seed(args.seed)
    return args


def main():
    parser = options(__doc__)
    parser.add_argument("--map", required=True, help="the map file of the level played")
    parser.add_argument("steps", nargs="+")
    args = parse(parser)
    Bot(args).run(args.steps)


if __name__ == "__main__":
    sys.exit(main())
