#!/usr/bin/env python3
"""Writes the hand-made metafiles of the picture tests, record by record from
the published layouts, without any metafile library: a reader that agrees
with these and with files from other programs is not just agreeing with the
writer it was built beside.

    python3 tests/data/preview/make_metafiles.py

The EMF files from gnuplot beside them were made with gnuplot's own emf
terminal (Debian's gnuplot-nox): see README.md in this folder.
"""
import os
import struct

HERE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "metafiles")


def rec(func, *words, data=b""):
    body = b"".join(struct.pack("<h", w) for w in words) + data
    if len(body) % 2:
        body += b"\0"
    return struct.pack("<IH", 3 + len(body) // 2, func) + body


def wmf(records, bbox=None, inch=1440):
    body = b"".join(records) + rec(0x0000)
    maxrec = max(struct.unpack_from("<I", r)[0] for r in records + [rec(0)])
    header = struct.pack("<HHHIHIH", 1, 9, 0x0300, 9 + len(body) // 2, 10, maxrec, 0)
    out = header + body
    if bbox:
        l, t, r, b = bbox
        words = struct.pack("<IHhhhhHI", 0x9AC6CDD7, 0, l, t, r, b, inch, 0)
        check = 0
        for i in range(10):
            check ^= struct.unpack_from("<H", words, i * 2)[0]
        out = words + struct.pack("<H", check) + out
    return out


def colorref(r, g, b):
    return struct.pack("<BBBB", r, g, b, 0)


def pen(style, width, r, g, b):
    return rec(0x02FA, style, width, 0, data=colorref(r, g, b))


def brush(style, r, g, b, hatch=0):
    return rec(0x02FC, style, data=colorref(r, g, b) + struct.pack("<h", hatch))


def font(height, charset, face, weight=400, escapement=0):
    data = struct.pack("<hhhhhBBBBBBBB", height, 0, escapement, 0, weight, 0, 0, 0, charset, 0, 0, 0, 0)
    return rec(0x02FB, data=data + face.encode("ascii") + b"\0")


def dib24(w, h, pixel):
    row = (w * 3 + 3) & ~3
    px = bytearray()
    for y in range(h - 1, -1, -1):
        line = bytearray()
        for x in range(w):
            r, g, b = pixel(x, y)
            line += bytes((b, g, r))
        px += line + b"\0" * (row - len(line))
    head = struct.pack("<IiiHHIIiiII", 40, w, h, 1, 24, 0, len(px), 2835, 2835, 0, 0)
    return head + bytes(px)


def shapes_wmf():
    # A 1000 x 1000 window on a 2 x 2 inch picture; four quadrants.
    r = [
        rec(0x0103, 8),                  # SETMAPMODE anisotropic
        rec(0x020B, 0, 0),               # SETWINDOWORG y, x
        rec(0x020C, 1000, 1000),         # SETWINDOWEXT y, x
        rec(0x0102, 1),                  # SETBKMODE transparent
        pen(5, 0, 0, 0, 0),              # 0: null pen
        brush(0, 255, 0, 0),             # 1: red
        brush(0, 0, 0, 255),             # 2: blue
        rec(0x012D, 0), rec(0x012D, 1),
        rec(0x041B, 450, 450, 50, 50),   # RECTANGLE bottom, right, top, left
        rec(0x012D, 2),
        rec(0x0418, 450, 950, 50, 550),  # ELLIPSE in the top right
        rec(0x01F0, 1),                  # DELETEOBJECT red: slot 1 is free again
        brush(0, 0, 160, 0),             # 1: green
        rec(0x012D, 1),
        rec(0x001E),                     # SAVEDC
        rec(0x0324, 3, 50, 950, 450, 950, 250, 550),  # POLYGON bottom left
        rec(0x0127, -1),                 # RESTOREDC
        pen(0, 20, 0, 0, 0),             # 3: black pen 20 units
        rec(0x012D, 3),
        rec(0x0325, 2, 550, 750, 950, 750),  # POLYLINE across the bottom right
        rec(0x0214, 600, 550),           # MOVETO y, x
        rec(0x0213, 900, 950),           # LINETO y, x
        rec(0x061C, 100, 100, 990, 990, 560, 560),  # ROUNDRECT h, w, b, r, t, l
    ]
    return wmf(r, bbox=(0, 0, 2880, 2880))


def text_wmf():
    # Greek text in a Greek font and Latin text by TEXTOUT; a picture 40 x 10 mm
    # in hundredths of a millimetre, no placeable header: the window is the frame.
    greek = bytes([0xC1, 0xC2, 0xC3])  # Alpha, Beta, Gamma in windows-1253
    r = [
        rec(0x0103, 8),
        rec(0x020B, 0, 0),
        rec(0x020C, 1000, 4000),
        rec(0x0102, 1),
        rec(0x0209, data=colorref(0, 0, 0)),   # SETTEXTCOLOR
        rec(0x012E, 24),                       # SETTEXTALIGN baseline
        font(-400, 161, "DejaVu Sans"),
        rec(0x012D, 0),
        # EXTTEXTOUT y, x, count, options, string, distances
        rec(0x0A32, 450, 100, 3, 0, data=greek + b"\0" + struct.pack("<hhh", 500, 500, 500)),
        font(-300, 0, "DejaVu Serif"),
        rec(0x012D, 1),
        rec(0x0521, 4, data=b"ABCD" + struct.pack("<hh", 900, 2000)),  # TEXTOUT count, string, y, x
    ]
    return wmf(r)


def bitmap_wmf():
    # A 4 x 2 bitmap, left half red and right half blue, stretched over the picture.
    dib = dib24(4, 2, lambda x, y: (255, 0, 0) if x < 2 else (0, 0, 255))
    # STRETCHDIB: rop, usage, srcH, srcW, ySrc, xSrc, destH, destW, yDst, xDst, DIB
    params = struct.pack("<IHhhhhhhhh", 0x00CC0020, 0, 2, 4, 0, 0, 500, 1000, 0, 0)
    r = [rec(0x0103, 8), rec(0x020B, 0, 0), rec(0x020C, 500, 1000),
         rec(0x0F43, data=params + dib)]
    return wmf(r, bbox=(0, 0, 1000, 500), inch=1000)


def polypolygon_wmf():
    # Two squares in one record, one inside the other: with the alternate
    # fill the inner one is a hole.
    pts = [(100, 100), (900, 100), (900, 900), (100, 900), (300, 300), (700, 300), (700, 700), (300, 700)]
    data = struct.pack("<hhh", 2, 4, 4) + b"".join(struct.pack("<hh", x, y) for x, y in pts)
    r = [rec(0x0103, 8), rec(0x020B, 0, 0), rec(0x020C, 1000, 1000), rec(0x0106, 1),
         pen(5, 0, 0, 0, 0), rec(0x012D, 0), brush(0, 0, 0, 0), rec(0x012D, 1),
         rec(0x0538, data=data)]
    return wmf(r, bbox=(0, 0, 1000, 1000), inch=1000)


def emr(kind, payload):
    payload += b"\0" * ((4 - len(payload) % 4) % 4)
    return struct.pack("<II", kind, 8 + len(payload)) + payload


def emf(records, bounds=(0, 0, 99, 99), frame=(0, 0, 2000, 2000)):
    records = records + [emr(14, struct.pack("<III", 0, 16, 20))]
    total = 108 + sum(len(r) for r in records)
    head = struct.pack("<iiii", *bounds) + struct.pack("<iiii", *frame)
    head += struct.pack("<IIIIHHIII", 0x464D4520, 0x10000, total, len(records) + 1, 4, 0, 0, 0, 0)
    head += struct.pack("<iiii", 100, 100, 20, 20)   # device 100 x 100 pixels on 20 x 20 mm
    head += struct.pack("<III", 0, 0, 0) + struct.pack("<ii", 20000, 20000)
    return emr(1, head) + b"".join(records)


def shapes_emf():
    rects = lambda l, t, r, b: struct.pack("<iiii", l, t, r, b)
    text = "Año Ω"
    utf16 = text.encode("utf-16-le")
    # EXTTEXTOUTW: bounds, mode, scales, ref, count, offString, options, rect, offDx, string, distances
    off_string = 8 + 16 + 12 + 8 + 12 + 16 + 4
    off_dx = off_string + ((len(utf16) + 3) & ~3)
    ext = (rects(0, 0, 0, 0) + struct.pack("<Iff", 1, 1.0, 1.0) + struct.pack("<ii", 10, 95)
           + struct.pack("<III", len(text), off_string, 0) + rects(0, 0, 0, 0) + struct.pack("<I", off_dx))
    ext += utf16 + b"\0" * ((4 - len(utf16) % 4) % 4) + b"".join(struct.pack("<i", 15) for _ in text)
    dib = dib24(2, 2, lambda x, y: (0, 200, 0))
    bmi, bits = dib[:40], dib[40:]
    # STRETCHDIBITS: bounds, dest, src, cSrc, offBmi, cbBmi, offBits, cbBits, usage, rop, cDest
    sdib = (rects(0, 0, 0, 0) + struct.pack("<ii", 60, 60) + struct.pack("<ii", 0, 0) + struct.pack("<ii", 2, 2)
            + struct.pack("<IIII", 80, 40, 120, len(bits)) + struct.pack("<II", 0, 0x00CC0020)
            + struct.pack("<ii", 30, 30) + bmi + bits)
    poly16 = rects(0, 0, 0, 0) + struct.pack("<I", 3) + struct.pack("<hhhhhh", 5, 55, 45, 55, 25, 95)
    return emf([
        emr(39, struct.pack("<IIII", 1, 0, 0x0000FF, 0)),           # CREATEBRUSHINDIRECT red (0x00bbggrr)
        emr(37, struct.pack("<I", 1)),                              # SELECTOBJECT
        emr(37, struct.pack("<I", 0x80000008)),                     # stock NULL_PEN
        emr(43, rects(5, 5, 45, 45)),                               # RECTANGLE
        emr(39, struct.pack("<IIII", 2, 0, 0xFF0000, 0)),           # blue
        emr(37, struct.pack("<I", 2)),
        emr(35, struct.pack("<ffffff", 1, 0, 0, 1, 50, 0)),         # SETWORLDTRANSFORM: 50 to the right
        emr(42, rects(5, 5, 45, 45)),                               # ELLIPSE, moved to the top right
        emr(35, struct.pack("<ffffff", 1, 0, 0, 1, 0, 0)),
        emr(37, struct.pack("<I", 0x80000004)),                     # stock BLACK_BRUSH
        emr(59, b""), emr(86, poly16), emr(60, b""), emr(62, rects(0, 0, 0, 0)),  # a path, filled
        emr(81, sdib),
        emr(22, struct.pack("<I", 24)),                             # SETTEXTALIGN baseline
        emr(84, ext),
    ])


def damaged():
    good = shapes_wmf()
    out = {}
    out["cut-header.wmf"] = good[:30]
    # A record that says it runs far past the end of the file.
    bad = bytearray(good)
    struct.pack_into("<I", bad, 22 + 18, 0x7FFFFFFF)
    out["record-past-end.wmf"] = bytes(bad)
    # A polygon that claims more points than its record holds.
    poly = wmf([rec(0x0324, 30000, 1, 2, 3, 4)], bbox=(0, 0, 10, 10))
    out["polygon-overcount.wmf"] = poly
    # A bitmap whose header claims a giant size.
    head = struct.pack("<IiiHHIIiiII", 40, 100000, 100000, 1, 24, 0, 0, 0, 0, 0, 0)
    params = struct.pack("<IHhhhhhhhh", 0x00CC0020, 0, 2, 4, 0, 0, 500, 1000, 0, 0)
    out["bitmap-giant.wmf"] = wmf([rec(0x0F43, data=params + head)], bbox=(0, 0, 10, 10))
    e = bytearray(shapes_emf())
    struct.pack_into("<I", e, 108 + 4, 4)  # a record shorter than its own header
    out["record-too-short.emf"] = bytes(e)
    e = bytearray(shapes_emf())
    out["cut.emf"] = bytes(e[:150])
    return out


def main():
    os.makedirs(HERE, exist_ok=True)
    files = {
        "shapes.wmf": shapes_wmf(),
        "text.wmf": text_wmf(),
        "bitmap.wmf": bitmap_wmf(),
        "polypolygon.wmf": polypolygon_wmf(),
        "shapes.emf": shapes_emf(),
    }
    for name, data in files.items():
        with open(os.path.join(HERE, name), "wb") as f:
            f.write(data)
    os.makedirs(os.path.join(HERE, "damaged"), exist_ok=True)
    for name, data in damaged().items():
        with open(os.path.join(HERE, "damaged", name), "wb") as f:
            f.write(data)


if __name__ == "__main__":
    main()
