"""What the bot learns from the observer: the "observe: " lines a level script prints on the
game's standard output (see README.md)."""


class Observer:
    """Reads the observer's lines from the game's standard output as they are written."""

    PREFIX = "observe: "

    def __init__(self, path):
        self._path = path
        self._offset = 0
        self._partial = ""
        self.hero = None  # (x, y), the hero's centre in level pixels
        self.foes = {}  # id -> (x, y), opponents standing
        self.down = set()  # ids of players who fell
        self.go = False  # the controls are the player's

    def poll(self):
        try:
            with open(self._path, "r", errors="replace") as log:
                log.seek(self._offset)
                text = log.read()
                self._offset = log.tell()
        except FileNotFoundError:
            return
        lines = (self._partial + text).split("\n")
        self._partial = lines.pop()
        for line in lines:
            if line.startswith(self.PREFIX):
                self._take(line[len(self.PREFIX):].split())

    def _take(self, words):
        if not words:
            return
        if words[0] == "go":
            self.go = True
        elif words[0] == "hero" and len(words) == 3:
            self.hero = (int(words[1]), int(words[2]))
        elif words[0] == "foe" and len(words) == 4:
            self.foes[int(words[1])] = (int(words[2]), int(words[3]))
        elif words[0] == "down" and len(words) >= 2:
            self.down.add(int(words[1]))
            self.foes.pop(int(words[1]), None)
