#!/usr/bin/env python3
"""Writes src/pages/arial_widths.h: the widths of Arial, by which reports are laid out without a window system.

They are read from Liberation Sans, whose letters have the widths of Arial (Debian package fonts-liberation2):
    scripts/arial_widths.py [FOLDER OF THE FONTS] > src/pages/arial_widths.h
"""
import struct
import sys
import textwrap

# First and last code point: Latin with its accents, Greek, Cyrillic, punctuation, and signs that texts use.
BLOCKS = [(0x20, 0x17F), (0x384, 0x3CE), (0x400, 0x491), (0x2010, 0x2033), (0x20AC, 0x20AC), (0x2122, 0x2122),
          (0x2190, 0x2195), (0x2212, 0x2212), (0x2248, 0x2248), (0x2260, 0x2265)]
EM = 2048
DIGIT = 1139  # for what the font lacks: another one, of unknown width, draws it


def widths(path):
    """The advance width of each code point that a TrueType font has a glyph for, in 1/2048 em."""
    font = open(path, "rb").read()
    tables = {}
    for i in range(struct.unpack_from(">H", font, 4)[0]):
        tag, _, offset, _ = struct.unpack_from(">4sLLL", font, 12 + 16 * i)
        tables[tag] = offset
    assert struct.unpack_from(">H", font, tables[b"head"] + 18)[0] == EM
    metrics = struct.unpack_from(">H", font, tables[b"hhea"] + 34)[0]
    advance = [struct.unpack_from(">H", font, tables[b"hmtx"] + 4 * i)[0] for i in range(metrics)]
    cmap = tables[b"cmap"]
    for i in range(struct.unpack_from(">H", font, cmap + 2)[0]):
        platform, encoding, offset = struct.unpack_from(">HHL", font, cmap + 4 + 8 * i)
        if (platform, encoding) == (3, 1):
            at = cmap + offset
    segments = struct.unpack_from(">H", font, at + 6)[0] // 2  # format 4
    found = {}
    for i in range(segments):
        place = at + 14 + 2 * i
        last, = struct.unpack_from(">H", font, place)
        first, = struct.unpack_from(">H", font, place + 2 + 2 * segments)
        delta, = struct.unpack_from(">H", font, place + 2 + 4 * segments)
        ranged, = struct.unpack_from(">H", font, place + 2 + 6 * segments)
        for code in range(first, last + 1):
            glyph = code
            if ranged:
                glyph, = struct.unpack_from(">H", font, place + 2 + 6 * segments + ranged + 2 * (code - first))
            if glyph or not ranged:
                glyph = (glyph + delta) % 0x10000
            if glyph:
                found[code] = advance[min(glyph, metrics - 1)]
    return found


def array(name, numbers):
    print(f"constexpr std::array<std::uint16_t, {len(numbers)}> {name}{{")
    print(textwrap.fill(", ".join(map(str, numbers)), 120, initial_indent="    ", subsequent_indent="    "))
    print("};")


folder = sys.argv[1] if len(sys.argv) > 1 else "/usr/share/fonts/truetype/liberation2"
print("""#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Made by scripts/arial_widths.py from Liberation Sans, whose letters have the widths of Arial.
// clang-format off
namespace tav::arial {

constexpr std::uint32_t kEm = 2048;  ///< the unit of the widths is 1/2048 em
constexpr std::uint32_t kDigit = 1139;

/// Neighbouring code points, and the place of the first one in the arrays.
struct Block {
  std::uint32_t first;
  std::uint32_t last;
  std::size_t at;
};""")
print(f"constexpr std::array<Block, {len(BLOCKS)}> kBlocks{{{{")
at = 0
for first, last in BLOCKS:
    print(f"    {{0x{first:X}, 0x{last:X}, {at}}},")
    at += last - first + 1
print("}};")
for name, file in (("kRegular", "LiberationSans-Regular.ttf"), ("kBold", "LiberationSans-Bold.ttf")):
    own = widths(f"{folder}/{file}")
    # Controls take no room.
    array(name, [0 if 0x7F <= code < 0xA0 else own.get(code, DIGIT)
                 for first, last in BLOCKS for code in range(first, last + 1)])
print("""
}  // namespace tav::arial""")
