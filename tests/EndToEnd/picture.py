"""Pictures as plain rows of pixels."""

import array
import collections
import subprocess


class Picture:
    """8-bit RGB pixels, from the top left corner, given as blue, green, red and an unused byte."""

    def __init__(self, width, height, pixels):
        self.width = width
        self.height = height
        self._pixels = array.array("I", pixels)

    @classmethod
    def of_file(cls, path):
        """As ImageMagick reads it."""
        data = subprocess.run(["convert", path, "-alpha", "remove", "-depth", "8", "ppm:-"],
                              check=True, stdout=subprocess.PIPE).stdout
        magic, size, maximum, triples = data.split(b"\n", 3)
        if magic != b"P6" or maximum != b"255":
            raise AssertionError("not a picture of 8 bits a component")
        width, height = map(int, size.split())
        pixels = bytearray(4 * width * height)
        for component in range(3):
            pixels[component::4] = triples[2 - component::3]
        return cls(width, height, bytes(pixels))

    def pixel(self, x, y):
        return components(self._pixels[y * self.width + x])

    def part(self, x, y, width, height):
        part = array.array("I")
        for row in range(y, y + height):
            part.extend(self._pixels[row * self.width + x:row * self.width + x + width])
        return Picture(width, height, part)

    def differing_pixels(self, other, tolerance=0):
        """How many pixels differ by more than `tolerance` in any component."""
        if (self.width, self.height) != (other.width, other.height):
            raise AssertionError("pictures of different sizes")
        pairs = collections.Counter(zip(self._pixels, other._pixels))
        return sum(count for (one, another), count in pairs.items()
                   if not are_near(components(one), components(another), tolerance))

    def count(self, color, tolerance=8):
        """How many pixels have a colour, nearly."""
        return sum(count for pixel, count in collections.Counter(self._pixels).items()
                   if are_near(components(pixel), color, tolerance))

    def __eq__(self, other):
        return ((self.width, self.height) == (other.width, other.height)
                and self.differing_pixels(other) == 0)


def components(pixel):
    return pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF


def are_near(one, another, tolerance):
    return all(abs(one[i] - another[i]) <= tolerance for i in range(3))
