"""How far the view has scrolled, seen as a person sees it: the scenery slides past.

The observer tells where the hero stands only at a level's start and after a kill; while the hero
walks, the bot follows the view by matching strips of scenery between two looks at the window."""

# Rows of the window compared (below the status bar), and the strips of each taken from the newer
# look: away from the middle, where the hero stands.
ROWS = (120, 180, 240, 300, 360, 420, 480, 540, 580)
STRIPS = (24, 180, 560, 680)
STRIP_WIDTH = 96
# Looks come 25 times a second; the hero walks or falls less than this far in that time, so a
# farther match is a repeated pattern, not the shift.
MAX_SHIFT = 40
# Strips that must agree on a shift: a bubble or a player over a strip can fake one match.
AGREEING = 3


class ScrollTracker:
    """The view's left edge in level pixels, kept up to date from successive looks."""

    def __init__(self, view_width, level_width):
        self._width = view_width
        self.last_corner = max(level_width - view_width, 0)
        self._previous = None
        self.corner = 0

    def reset(self, corner):
        """The corner as the observer's report of the hero's place gives it."""
        self.corner = max(0, min(corner, self.last_corner))
        self._previous = None

    def look(self, data, stride):
        """Takes a new look at the window and moves the corner by the shift the scenery shows."""
        previous, self._previous = self._previous, (data, stride)
        if previous is None:
            return
        shift = self._shift(previous, (data, stride))
        if shift:
            self.corner = max(0, min(self.corner + shift, self.last_corner))

    def _shift(self, old, new):
        votes = {}
        for y in ROWS:
            old_row = _row(old, y, self._width)
            new_row = _row(new, y, self._width)
            for x in STRIPS:
                strip = new_row[4 * x:4 * (x + STRIP_WIDTH)]
                if strip == strip[:4] * STRIP_WIDTH:
                    continue  # plain sky or wall matches everywhere
                found = _matches(old_row, strip, x)
                if len(found) == 1:
                    votes[found[0]] = votes.get(found[0], 0) + 1
        if not votes:
            return 0
        shift, count = max(votes.items(), key=lambda item: item[1])
        return shift if count >= AGREEING else 0


def _row(look, y, width):
    data, stride = look
    return data[y * stride:y * stride + 4 * width]


def _matches(row, strip, x):
    """The shifts (old place minus new place, in pixels) at which the strip shows in the row."""
    shifts = []
    start = row.find(strip)
    while start >= 0:
        if start % 4 == 0 and abs(start // 4 - x) <= MAX_SHIFT:
            shifts.append(start // 4 - x)
        start = row.find(strip, start + 1)
    return shifts
