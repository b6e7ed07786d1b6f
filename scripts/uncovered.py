"""Says which lines and branches the tests did not reach.

    uncovered.py OBJECTS SOURCES LIST

OBJECTS is the folder with the counts of the compiler, SOURCES the folder that is looked at. LIST has
paragraphs: lines with "# " say why, the others are entries, "FILE: TEXT OF THE LINE". An entry stands
for each line of that text in the file, so that it holds when lines move.
"""

import collections
import json
import pathlib
import subprocess
import sys


def counts_of(objects):
    """What gcov tells of each object, one document for each."""
    for counts in sorted(pathlib.Path(objects).rglob("*.gcda")):
        answer = subprocess.run(
            ["gcov", "--json-format", "--branch-probabilities", "--stdout", counts.name],
            cwd=counts.parent, check=True, capture_output=True)
        yield json.loads(answer.stdout)


class Line:
    """A line of all objects and all instances of a template together."""

    def __init__(self):
        self.count = 0
        self.branches = collections.Counter()

    def add(self, told):
        self.count += told["count"]
        for index, branch in enumerate(told["branches"]):
            if not branch["throw"]:
                self.branches[index] += branch["count"]

    def missed(self):
        return self.count == 0 or 0 in self.branches.values()


def lines_of(objects, sources):
    """Line by file and number."""
    root = pathlib.Path.cwd()
    lines = collections.defaultdict(Line)
    for document in counts_of(objects):
        folder = pathlib.Path(document["current_working_directory"])
        for file in document["files"]:
            path = (folder / file["file"]).resolve()
            if path.is_relative_to(root / sources):
                for told in file["lines"]:
                    lines[str(path.relative_to(root)), told["line_number"]].add(told)
    return lines


def entries_of(path):
    """The entries of the list, with the number of their lines."""
    entries = {}
    for number, text in enumerate(pathlib.Path(path).read_text(encoding="utf-8").splitlines(), 1):
        if text.strip() and not text.startswith("#"):
            entries[text.strip()] = number
    return entries


def share(name, reached, total):
    print(f"{name:<9} {reached} of {total}, {100 * reached / max(total, 1):.1f} %")


def main(objects, sources, path):
    lines = lines_of(objects, sources)
    share("lines", sum(line.count > 0 for line in lines.values()), len(lines))
    branches = [count for line in lines.values() for count in line.branches.values()]
    share("branches", sum(count > 0 for count in branches), len(branches))

    texts = {name: pathlib.Path(name).read_text(encoding="utf-8").splitlines()
             for name in {name for name, _ in lines}}
    entries = entries_of(path)
    seen, found = set(), []
    for (name, number), line in sorted(lines.items()):
        if line.missed():
            entry = f"{name}: {texts[name][number - 1].strip()}"
            seen.add(entry)
            if entry not in entries:
                what = "line" if line.count == 0 else "branch"
                found.append(f"{name}:{number}: {what} not reached: {entry.partition(': ')[2]}")
    found += [f"{path}:{number}: reached, or gone: {entry}"
              for entry, number in entries.items() if entry not in seen]
    print("\n".join(found) or f"not reached: {len(entries)} entries of {path}, each with its reason")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
