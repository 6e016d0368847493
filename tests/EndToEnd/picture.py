"""Pictures as plain rows of pixels, read with ImageMagick's tools."""

import subprocess


class Picture:
    """8-bit RGB pixels, from the top left corner."""

    def __init__(self, width, height, pixels):
        self.width = width
        self.height = height
        self._pixels = pixels

    @classmethod
    def of_screen(cls, environment):
        return cls._from_ppm(_output(["import", "-silent", "-window", "root", "-depth", "8",
                                      "ppm:-"], environment))

    @classmethod
    def of_file(cls, path):
        return cls._from_ppm(_output(["convert", path, "-alpha", "remove", "-depth", "8", "ppm:-"],
                                     None))

    def pixel(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self._pixels[start:start + 3])

    def part(self, x, y, width, height):
        rows = (self._pixels[3 * (row * self.width + x):3 * (row * self.width + x + width)]
                for row in range(y, y + height))
        return Picture(width, height, b"".join(rows))

    def differing_pixels(self, other, tolerance=0):
        """How many pixels differ by more than `tolerance` in any component."""
        if (self.width, self.height) != (other.width, other.height):
            raise AssertionError("pictures of different sizes")
        return sum(
            1 for start in range(0, len(self._pixels), 3)
            if any(abs(self._pixels[start + i] - other._pixels[start + i]) > tolerance
                   for i in range(3)))

    def count(self, color, tolerance=8):
        """How many pixels have a colour, nearly."""
        return sum(
            1 for start in range(0, len(self._pixels), 3)
            if all(abs(self._pixels[start + i] - color[i]) <= tolerance for i in range(3)))

    def __eq__(self, other):
        return (self.width, self.height, self._pixels) == (other.width, other.height,
                                                           other._pixels)

    @classmethod
    def _from_ppm(cls, data):
        magic, size, maximum, pixels = data.split(b"\n", 3)
        if magic != b"P6" or maximum != b"255":
            raise AssertionError("not a picture of 8 bits a component")
        width, height = map(int, size.split())
        return cls(width, height, pixels)


def _output(command, environment):
    return subprocess.run(command, env=environment, check=True, stdout=subprocess.PIPE).stdout
