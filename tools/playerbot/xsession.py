"""The bot's senses and limbs on an X display: the pointer, the buttons and the keys through the
X test extension (the events a real mouse and keyboard send), and the pixels of a window.

Only libX11 and libXtst are used, through ctypes, so that the bot needs nothing beyond what
xdotool already brings in."""

import ctypes
import ctypes.util


class _XImage(ctypes.Structure):
    # The leading fields of Xlib's XImage, as far as the pixel data and its layout.
    _fields_ = [
        ("width", ctypes.c_int),
        ("height", ctypes.c_int),
        ("xoffset", ctypes.c_int),
        ("format", ctypes.c_int),
        ("data", ctypes.POINTER(ctypes.c_ubyte)),
        ("byte_order", ctypes.c_int),
        ("bitmap_unit", ctypes.c_int),
        ("bitmap_bit_order", ctypes.c_int),
        ("bitmap_pad", ctypes.c_int),
        ("depth", ctypes.c_int),
        ("bytes_per_line", ctypes.c_int),
        ("bits_per_pixel", ctypes.c_int),
    ]


_ALL_PLANES = 0xFFFFFFFF
_Z_PIXMAP = 2
_LSB_FIRST = 0


class XSession:
    """One connection to the display named by DISPLAY."""

    def __init__(self):
        self._x = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
        self._xtest = ctypes.CDLL(ctypes.util.find_library("Xtst") or "libXtst.so.6")
        x = self._x
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XOpenDisplay.argtypes = [ctypes.c_char_p]
        x.XDefaultRootWindow.restype = ctypes.c_ulong
        x.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        x.XFlush.argtypes = [ctypes.c_void_p]
        x.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
        x.XStringToKeysym.restype = ctypes.c_ulong
        x.XStringToKeysym.argtypes = [ctypes.c_char_p]
        x.XKeysymToKeycode.restype = ctypes.c_ubyte
        x.XKeysymToKeycode.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
        x.XQueryPointer.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + [ctypes.c_void_p] * 7
        x.XTranslateCoordinates.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong,
                                            ctypes.c_int, ctypes.c_int] + [ctypes.c_void_p] * 3
        x.XGetImage.restype = ctypes.POINTER(_XImage)
        x.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                                ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        x.XFree.argtypes = [ctypes.c_void_p]
        t = self._xtest
        t.XTestFakeMotionEvent.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int,
                                           ctypes.c_int, ctypes.c_ulong]
        t.XTestFakeRelativeMotionEvent.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int,
                                                   ctypes.c_ulong]
        t.XTestFakeButtonEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int,
                                           ctypes.c_ulong]
        t.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int,
                                        ctypes.c_ulong]
        self._display = x.XOpenDisplay(None)
        if not self._display:
            raise RuntimeError("cannot open the X display named by DISPLAY")
        self._root = x.XDefaultRootWindow(self._display)

    def pointer(self):
        """The pointer's position on the screen."""
        root, child = ctypes.c_ulong(), ctypes.c_ulong()
        rx, ry, wx, wy = ctypes.c_int(), ctypes.c_int(), ctypes.c_int(), ctypes.c_int()
        mask = ctypes.c_uint()
        self._x.XQueryPointer(self._display, self._root, ctypes.byref(root), ctypes.byref(child),
                              ctypes.byref(rx), ctypes.byref(ry), ctypes.byref(wx),
                              ctypes.byref(wy), ctypes.byref(mask))
        return rx.value, ry.value

    def window_origin(self, window):
        """Where the window's top-left pixel lies on the screen."""
        x, y, child = ctypes.c_int(), ctypes.c_int(), ctypes.c_ulong()
        self._x.XTranslateCoordinates(self._display, window, self._root, 0, 0, ctypes.byref(x),
                                      ctypes.byref(y), ctypes.byref(child))
        return x.value, y.value

    def move_pointer(self, x, y):
        """Moves the pointer to a point of the screen, as a mouse does: the window sees motion."""
        self._xtest.XTestFakeMotionEvent(self._display, -1, int(x), int(y), 0)
        self._x.XFlush(self._display)

    def nudge_pointer(self, dx, dy):
        """Moves the pointer by (dx, dy) from wherever it is, as a mouse on the desk does."""
        self._xtest.XTestFakeRelativeMotionEvent(self._display, int(dx), int(dy), 0)
        self._x.XFlush(self._display)

    def button(self, number, down):
        self._xtest.XTestFakeButtonEvent(self._display, number, 1 if down else 0, 0)
        self._x.XFlush(self._display)

    def key(self, name, down):
        """Presses or releases the key with the X keysym name given ("a", "1", "Escape")."""
        keysym = self._x.XStringToKeysym(name.encode())
        code = self._x.XKeysymToKeycode(self._display, keysym)
        if not code:
            raise ValueError("no key for " + name)
        self._xtest.XTestFakeKeyEvent(self._display, code, 1 if down else 0, 0)
        self._x.XFlush(self._display)

    def grab(self, window, width, height):
        """The window's pixels as rows of 32-bit little-endian BGRX values: (bytes, stride), or
        None when the window cannot be read."""
        image = self._x.XGetImage(self._display, window, 0, 0, width, height, _ALL_PLANES,
                                  _Z_PIXMAP)
        if not image:
            return None
        try:
            im = image.contents
            if im.bits_per_pixel != 32 or im.byte_order != _LSB_FIRST:
                raise RuntimeError("the bot reads only 32-bit little-endian true-colour windows")
            data = ctypes.string_at(im.data, im.bytes_per_line * im.height)
            return data, im.bytes_per_line
        finally:
            # What XDestroyImage (a macro) does for an image XGetImage made: both blocks are
            # Xlib's own allocations.
            self._x.XFree(image.contents.data)
            self._x.XFree(image)
