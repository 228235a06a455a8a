#!/usr/bin/env python3
"""The player bot plays the whole campaign, level after level, as a careful player with a mouse.

It learns where the hero and the opponents are from the "observe: " lines of the campaign's
observer (bench/campaign/observer.fb), and follows the view as the scenery slides past while the
hero walks. It reads every speech bubble to its end before a level (a click during the fight closes
a bubble that hides the sight), walks towards the nearest opponent until he is in easy reach,
jumping where something blocks the way, and taps at his chest. After a fall it plays the level
again.

Usage: campaign.py --log GAME_STDOUT --maps MEADOW,HARBOUR,FORTRESS [--table FILE] [options]
It prints a line per level and, with --table, appends one CSV row per level to FILE: the level,
the attempts it took, the seconds from the first hand-over to the last opponent down (retries
included), the rounds fired (the bot's taps: a 100 ms tap fires one round, as the gun needs 7
frames between two), the hits seen (new drops of blood around the aim point within a fifth of a
second of a tap), the health the status bar shows when the last opponent falls, the campaign's
seconds (so far, when it was not finished), whether the level was won and whether the campaign
was. The rows are written also when the bot gives up or is stopped (SIGTERM)."""

import signal
import sys
import threading
import time

from observer import Observer
from playerbot import WEAPON_KEYS, Bot, options, parse, read_level_size
from scroll import ScrollTracker
from xsession import XSession

# The status bar's health bar: 200 pixels at 100 health, in this colour (BGRX bytes).
HEALTH_ROW, HEALTH_LEFT, HEALTH_WIDTH = 58, 128, 200
HEALTH_COLOUR = b"\x30\x26\xb6"
BLOOD = b"\x00\x00\xff"  # a drop of blood is pure red
# The status bar's magazine: a brass cartridge on this row for each round loaded.
MAGAZINE_ROW, MAGAZINE_LEFT, MAGAZINE_RIGHT = 57, 390, 636
# Seconds the magazine may stay empty before the bot takes it that the reserve is spent too (the
# game loads the next magazine by itself).
RELOAD_SECONDS = 2.5
# Pixels between the hero and an opponent: one within REACH is fought from where the hero
# stands; one farther away is walked to until he is CLOSE. The levels run west to east and the
# opponents stand at the west ends of their perches, so the bot stays west of them.
REACH, CLOSE = 380, 240
# Taps without a hit seen before the bot tries another place (something may stand in the way).
MISSES_BEFORE_MOVING = 5
# The distances west of the opponent tried in turn after misses: farther (a plank under an
# opponent up high hides him from below), right up to him (over a wall between), and in between.
STANDS = (330, 60, 200)
WALK_SECONDS = 8.0
# Seconds walked back before a jump at what blocks the way, in turn (0: a jump where he stands).
RUN_UPS = (0, 0.5, 1.0, 1.6)


class CampaignObserver(Observer):
    """Also follows the course of the campaign: which level and attempt, a fall, the end."""

    def __init__(self, path):
        super().__init__(path)
        self.level = self.attempt = 0
        self.lost = self.finished = False

    def _take(self, words):
        if words and words[0] == "level" and len(words) == 3:
            self.level, self.attempt = int(words[1]), int(words[2])
            self.foes, self.hero, self.go, self.lost = {}, None, False, False
        elif words == ["lost"]:
            self.lost = True
        elif words == ["finished"]:
            self.finished = True
        else:
            super()._take(words)


class CampaignBot(Bot):
    def __init__(self, args):
        self.maps = args.maps.split(",")
        args.map = self.maps[0]
        super().__init__(args)
        self.observer = CampaignObserver(args.log)
        self.scroll = ScrollTracker(self.camera.view[0], self.camera.level[0])
        threading.Thread(target=self.follow_view, daemon=True).start()
        self.records = {}
        self.hits = 0  # in the level in play
        self.moves = {}  # opponent -> how often the bot has tried another place for him

    def follow_view(self):
        """Looks at the window 25 times a second, on a connection of its own, so that no step of
        the view is missed however long the hand is busy."""
        session = XSession()
        while True:
            grabbed = session.grab(self.window, *self.camera.view)
            if grabbed:
                self.scroll.look(*grabbed)
            time.sleep(0.04)

    def to_view(self, point):
        return point[0] - self.scroll.corner, point[1]

    def play(self):
        began = time.monotonic()
        while True:
            if not self.wait(lambda: self.observer.go or self.observer.finished, 900):
                raise SystemExit("bot: no level was handed over for 15 minutes")
            if self.observer.finished:
                break
            self.play_level()
        self.say("campaign won in %.1f s" % (time.monotonic() - began))
        return time.monotonic() - began

    def play_level(self):
        seen = self.observer
        level, attempt = seen.level, seen.attempt
        record = self.records.setdefault(level, dict(attempts=0, time=0.0, rounds=0, hits=0,
                                                     health=0, won=False))
        record["attempts"] = attempt
        width = read_level_size(self.maps[level - 1])[0]
        self.scroll = ScrollTracker(self.camera.view[0], width)
        self.scroll.reset(seen.hero[0] - self.camera.view[0] // 2)
        self.hero = seen.hero[0]
        self.step_go()
        seen.go = False
        self.weapon = "gun"  # each level hands the hero the gun
        began, presses = time.monotonic(), self.hand.presses
        reported = self.hero
        while seen.foes and not seen.lost and seen.level == level and not seen.finished:
            self.engage(self.nearest())
            seen.poll()
            if seen.hero and seen.hero[0] != reported:
                reported = self.hero = seen.hero[0]
                self.scroll.reset(self.hero - self.camera.view[0] // 2)
        record["time"] += time.monotonic() - began
        record["rounds"] += self.hand.presses - presses
        record["hits"] += self.hits
        self.hits = 0
        if not seen.lost:
            record["health"] = self.health()
            record["won"] = True
        self.say("level %d, attempt %d: %s after %.1f s, health %d" % (level, attempt,
                 "lost" if seen.lost else "won", time.monotonic() - began, record["health"]))

    def hero_x(self):
        """Where the hero stands: the view is centred on him except near the level's ends,
        where the bot goes by what the observer said last."""
        corner, half = self.scroll.corner, self.camera.view[0] // 2
        if 0 < corner < self.scroll.last_corner:
            self.hero = corner + half
        return self.hero

    def nearest(self):
        return min(self.observer.foes,
                   key=lambda foe: abs(self.observer.foes[foe][0] - self.hero_x()))

    def off_middle(self, foe):
        """How far the foe stands to the hero's right (negative: to his left)."""
        return self.observer.foes[foe][0] - self.hero_x()

    def engage(self, foe):
        if not 0 < self.off_middle(foe) <= REACH:
            self.walk_to(foe, CLOSE)
            return
        misses, presses, hits = 0, self.hand.presses, self.hits
        while self.standing(foe) and misses < MISSES_BEFORE_MOVING:
            if self.aim(foe):
                target = self.aim_point(foe)
                before = self.blood_near(target)
                self.shoot(foe)
                time.sleep(0.2)
                self.eye.look()
                if self.blood_near(target) > before:
                    self.hits, misses = self.hits + 1, 0
                else:
                    misses += 1
                if self.weapon == "gun" and self.magazine_empty():
                    self.take_pistol_when_spent()
            elif self.eye.sight() is None:
                self.hand.tap(self.args.tap / 1000.0)  # closes the bubble over the sight
            else:
                misses += 1  # the sight would not settle on him
        self.say("foe %d: %d taps, %d hits seen, %s" % (foe, self.hand.presses - presses,
                 self.hits - hits, "standing" if self.standing(foe) else "down"))
        if self.standing(foe):
            self.moves[foe] = self.moves.get(foe, -1) + 1
            self.walk_to(foe, STANDS[self.moves[foe] % len(STANDS)])

    def magazine_empty(self):
        """Whether the status bar shows no cartridge in the magazine, in the last look."""
        data, stride = self.eye.last
        row = data[MAGAZINE_ROW * stride + 4 * MAGAZINE_LEFT:MAGAZINE_ROW * stride + 4 * MAGAZINE_RIGHT]
        return not any(row[i + 2] > 150 and row[i + 1] > 100 for i in range(0, len(row), 4))

    def take_pistol_when_spent(self):
        """A player whose gun has run dry takes the pistol, as long as the magazine stays empty
        past a reload."""
        time.sleep(RELOAD_SECONDS)
        self.eye.look()
        if self.magazine_empty():
            self.say("the gun is spent: taking the pistol")
            self.hand.react()
            self.hand.key(WEAPON_KEYS["pistol"])
            self.weapon = "pistol"

    def standing(self, foe):
        self.observer.poll()
        return foe in self.observer.foes and not self.observer.lost

    def walk_to(self, foe, distance):
        """Walks until the hero stands the distance given west of the foe. Where the view stands
        still, something blocks the way: the bot steps back and takes a run and a jump at it."""
        goal = lambda: self.off_middle(foe) - distance  # how far the hero still has to go east
        if abs(goal()) <= 30:
            return
        east = goal() > 0
        key, back = ("d", "a") if east else ("a", "d")
        self.say("foe %d is %d pixels east of the hero at %d: walking %s to %d"
                 % (foe, self.off_middle(foe), self.hero, key, distance))
        self.hand.react()
        self.hand.hold(key, True)
        jumps, corner, since = 0, self.scroll.corner, time.monotonic()
        end = since + WALK_SECONDS
        try:
            while time.monotonic() < end and self.standing(foe):
                if (goal() <= 0) == east:
                    break
                # The view trembles by a pixel or two while the hero pushes against a wall.
                if abs(self.scroll.corner - corner) > 4:
                    corner, since = self.scroll.corner, time.monotonic()
                elif time.monotonic() - since > 0.4:
                    # Near the level's ends the view does not follow the hero: he may be
                    # walking, but a jump costs little. Then he takes ever longer runs at it
                    # (under a plank, a jump must start before the plank).
                    self.say("blocked at %d: a jump after a run-up of %.1f s"
                             % (self.hero_x(), RUN_UPS[jumps % len(RUN_UPS)]))
                    if jumps % len(RUN_UPS):
                        self.hand.hold(key, False)
                        self.hand.key(back, RUN_UPS[jumps % len(RUN_UPS)])
                        self.hand.hold(key, True)
                        time.sleep(0.3)
                    self.hand.key("w")
                    jumps += 1
                    corner, since = self.scroll.corner, time.monotonic()
                time.sleep(0.05)
        finally:
            self.hand.hold(key, False)
        # Lands before aiming.
        time.sleep(0.4)

    def blood_near(self, target):
        """Drops of blood within a hand's breadth of the window point, in the last look."""
        data, stride = self.eye.last
        width, height = self.camera.view
        count = 0
        for y in range(max(target[1] - 30, 0), min(target[1] + 20, height)):
            row = data[y * stride + 4 * max(target[0] - 24, 0):y * stride + 4 * min(target[0] + 24, width)]
            start = row.find(BLOOD)
            while start >= 0:
                count += start % 4 == 0
                start = row.find(BLOOD, start + 1)
        return count

    def health(self):
        """The health the status bar shows."""
        data, stride = self.eye.look() or self.eye.last
        row = data[HEALTH_ROW * stride:HEALTH_ROW * stride + 4 * (HEALTH_LEFT + HEALTH_WIDTH)]
        return sum(row[4 * x:4 * x + 3] == HEALTH_COLOUR
                   for x in range(HEALTH_LEFT, HEALTH_LEFT + HEALTH_WIDTH)) * 100 // HEALTH_WIDTH


def main():
    parser = options(__doc__)
    parser.add_argument("--maps", required=True,
                        help="the levels' map files, comma-separated, in the campaign's order")
    parser.add_argument("--table", help="a CSV file to which a row per level is appended")
    parser.add_argument("--run", default="1", help="the run's name in the table")
    args = parse(parser)
    # A run stopped from outside (run.sh's time limit) still leaves its rows.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("bot: stopped from outside"))
    bot = CampaignBot(args)
    began, total = time.monotonic(), None
    try:
        total = bot.play()
    finally:
        if args.table:
            write_rows(args.table, args.run, bot.records, total or time.monotonic() - began,
                       total is not None)


def write_rows(path, run, records, total, finished):
    """A row per level played, also when the run ended before the campaign did, so that a level
    the bot is stuck in shows in the table; the last two columns are the campaign's seconds so far
    and whether the campaign was finished."""
    with open(path, "a") as table:
        for level in sorted(records):
            r = records[level]
            table.write("%s,%d,%d,%.1f,%d,%d,%d,%.1f,%d,%d\n" % (
                run, level, r["attempts"], r["time"], r["rounds"], r["hits"], r["health"], total,
                r["won"], finished))


if __name__ == "__main__":
    sys.exit(main())
