"""Writes a font "3 of 9 Barcode" into the file that is named: Code 39 as it is published, a glyph
a character, small letters drawn as capitals. For tests only.

    python3 code39_font.py FILE.ttf
"""
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

# Nine elements a character, bars and spaces in turn; w is wide, n narrow.
ELEMENTS = {
    "0": "nnnwwnwnn", "1": "wnnwnnnnw", "2": "nnwwnnnnw", "3": "wnwwnnnnn", "4": "nnnwwnnnw",
    "5": "wnnwwnnnn", "6": "nnwwwnnnn", "7": "nnnwnnwnw", "8": "wnnwnnwnn", "9": "nnwwnnwnn",
    "A": "wnnnnwnnw", "B": "nnwnnwnnw", "C": "wnwnnwnnn", "D": "nnnnwwnnw", "E": "wnnnwwnnn",
    "F": "nnwnwwnnn", "G": "nnnnnwwnw", "H": "wnnnnwwnn", "I": "nnwnnwwnn", "J": "nnnnwwwnn",
    "K": "wnnnnnnww", "L": "nnwnnnnww", "M": "wnwnnnnwn", "N": "nnnnwnnww", "O": "wnnnwnnwn",
    "P": "nnwnwnnwn", "Q": "nnnnnnwww", "R": "wnnnnnwwn", "S": "nnwnnnwwn", "T": "nnnnwnwwn",
    "U": "wwnnnnnnw", "V": "nwwnnnnnw", "W": "wwwnnnnnn", "X": "nwnnwnnnw", "Y": "wwnnwnnnn",
    "Z": "nwwnwnnnn", "-": "nwnnnnwnw", ".": "wwnnnnwnn", " ": "nwwnnnwnn", "$": "nwnwnwnnn",
    "/": "nwnwnnnwn", "+": "nwnnnwnwn", "%": "nnnwnwnwn", "*": "nwnnwnwnn",
}
MODULE = 32  # units of a narrow element; a character has sixteen with its gap
WIDTH = 16 * MODULE
HEIGHT = 720


def glyph_of(elements):
    pen = TTGlyphPen(None)
    left = 0
    for place, element in enumerate(elements):
        right = left + (3 if element == "w" else 1) * MODULE
        if place % 2 == 0:
            for move, point in ((pen.moveTo, (left, 0)), (pen.lineTo, (left, HEIGHT)),
                                (pen.lineTo, (right, HEIGHT)), (pen.lineTo, (right, 0))):
                move(point)
            pen.closePath()
        left = right
    return pen.glyph()


def write_font(path):
    glyphs = {".notdef": TTGlyphPen(None).glyph()}
    characters = {}
    for character, elements in ELEMENTS.items():
        name = f"code{ord(character):02X}"
        glyphs[name] = glyph_of(elements)
        characters[ord(character)] = name
        characters[ord(character.lower())] = name
    builder = FontBuilder(1024, isTTF=True)
    builder.setupGlyphOrder(list(glyphs))
    builder.setupCharacterMap(characters)
    builder.setupGlyf(glyphs)
    builder.setupHorizontalMetrics({name: (WIDTH, 0) for name in glyphs})
    builder.setupHorizontalHeader(ascent=800, descent=-224)
    builder.setupNameTable({"familyName": "3 of 9 Barcode", "styleName": "Regular"})
    builder.setupOS2(sTypoAscender=800, sTypoDescender=-224, usWinAscent=800, usWinDescent=224)
    builder.setupPost()
    builder.save(path)


write_font(sys.argv[1])
