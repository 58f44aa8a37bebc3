# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Types any text, as a keyboard would that has a key for each of its characters."""

from Xlib import X, XK
from Xlib.ext import xtest

from waiting import wait_until

#: A character of Unicode is a key's symbol with this added to its number.
UNICODE = 0x1000000


class Keyboard:
    def __init__(self, display):
        self._display = display
        self._lent = []  # keys that were given a character, longest ago first

    def type(self, text):
        """What has the keyboard gets the text, one character after the other. There may be some fifteen different
        characters in it that the keyboard lacks."""
        keys = self._with_all(text)
        for character in text:
            code, shifted = keys[character]
            if shifted:
                self._key(X.KeyPress, self._shift())
            self._key(X.KeyPress, code)
            self._key(X.KeyRelease, code)
            if shifted:
                self._key(X.KeyRelease, self._shift())
        self._display.sync()

    def caps_lock(self):
        return bool(self._display.screen().root.query_pointer().mask & X.LockMask)

    def set_caps_lock(self, wanted):
        if self.caps_lock() != wanted:
            code = self._display.keysym_to_keycode(XK.XK_Caps_Lock)
            self._key(X.KeyPress, code)
            self._key(X.KeyRelease, code)
            self._display.sync()
        wait_until(lambda: self.caps_lock() == wanted, f"Caps Lock to be {wanted}")

    def _with_all(self, text):
        """Key and whether it takes Shift, by character. Gives the characters that have no key one that is free: all of
        them before the first is typed, as programs take a moment to hear of it."""
        first = self._display.display.info.min_keycode
        count = self._display.display.info.max_keycode - first + 1
        mapping = self._display.get_keyboard_mapping(first, count)
        free = [first + number for number, symbols in enumerate(mapping) if not any(symbols)]
        known = {}
        for number, symbols in enumerate(mapping):
            for level in (1, 0):
                if symbols[level]:
                    known[symbols[level]] = (first + number, level == 1)
        symbols = {character: ord(character) if ord(character) < 0x100 else UNICODE + ord(character)
                   for character in text}
        lacking = set(symbols.values()) - set(known)
        needed = {known[symbol][0] for symbol in symbols.values() if symbol in known}
        keys = (free + [code for code in self._lent if code not in needed])[:len(lacking)]
        for symbol, code in zip(lacking, keys, strict=True):
            self._display.change_keyboard_mapping(code, [[symbol] * 2])
            known[symbol] = (code, False)
        self._lent = [code for code in self._lent if code not in keys] + keys
        self._display.sync()
        return {character: known[symbol] for character, symbol in symbols.items()}

    def _shift(self):
        return self._display.keysym_to_keycode(XK.XK_Shift_L)

    def _key(self, kind, code):
        xtest.fake_input(self._display, kind, code)
