"""Marlux 3. What the scripts that make samples share."""

import os


class Choices:
    """A linear congruential generator; its upper bits are good enough for a sample."""

    def __init__(self, seed):
        self.state = seed

    def below(self, count):
        self.state = (self.state * 1103515245 + 12345) % 2**31
        return (self.state >> 8) % count

    def of(self, values):
        return values[self.below(len(values))]


def write_whole(path, data):
    """Another build may be reading the old file: the new one takes its place whole."""
    os.makedirs(os.path.dirname(path) or ".", exist_ok=True)
    aside = f"{path}.{os.getpid()}"
    with open(aside, "wb") as file:
        file.write(data)
    os.replace(aside, path)
