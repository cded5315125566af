"""The command blocks of pages.

scripts FOLDER RUN PAGE...  makes FOLDER/NAME/page.sh of the "sh" blocks of each page, behind docs_shell.sh
compare FOLDER PAGE...      compares what they said, FOLDER/NAME/LINE.out, with the "text" blocks that follow them

In a "text" block a line "..." stands for any lines, and "..." within a line for any characters. A block of another
kind between the two means that the text is not of these commands.
"""
import os
import re
import sys

ADAPTOR = "/dev/ttyUSB0"  # where a page names it, a simulated meter takes its place
NODE = "127.0.0.2"  # where a page starts a node, this address and TCP port 10001 are others in each run


def blocks(page):
    """(line of the fence, kind, text) of every block, in order."""
    found, kind, begin, lines = [], None, 0, []
    for number, line in enumerate(open(page, encoding="utf-8"), 1):
        if not line.startswith("```"):
            lines.append(line)
        elif kind is None:
            kind, begin, lines = line[3:].strip(), number, []
        else:
            found.append((begin, kind, "".join(lines)))
            kind = None
    return found


def own_line(text, run):
    """Each run of the test has its own adaptor, its own node, and its own port that the node calls."""
    text = text.replace(ADAPTOR, "./adaptor")
    if NODE not in text:
        return text
    number = int(run) % 20000
    text = text.replace(NODE, f"127.{90 + number // 250}.{number % 250}.2")
    return text.replace("TcpPort=10001", f"TcpPort={12000 + number}")


def folder_of(folder, page):
    return os.path.join(folder, os.path.splitext(os.path.basename(page))[0])


def scripts(folder, run, *pages):
    shell = open(os.path.join(os.path.dirname(__file__), "docs_shell.sh"), encoding="utf-8").read()
    for page in pages:
        commands = [(line, own_line(text, run)) for line, kind, text in blocks(page) if kind == "sh"]
        if any("./adaptor" in text for _, text in commands):
            commands.insert(0, (0, "counter-sim --link ./adaptor &\n"))
        own = folder_of(folder, page)
        os.makedirs(f"{own}/desk")
        with open(f"{own}/page.sh", "w", encoding="utf-8") as script:
            script.write(shell)
            for line, text in commands:
                script.write(f'block {line}\n{text}meters_are_there\n')


def pattern(text):
    parts = []
    for line in text.splitlines():
        if line.strip() == "...":
            parts.append(r"(?:.*\n)*?")
        else:
            parts.append(".*".join(re.escape(part) for part in line.rstrip().split("...")) + r" *\n")
    return "".join(parts)


def compare(folder, *pages):
    wrong = 0
    for page in pages:
        before = (0, "", "")
        for line, kind, text in blocks(page):
            if kind == "text" and before[1] == "sh":
                said = open(f"{folder_of(folder, page)}/{before[0]}.out", encoding="utf-8").read()
                if not re.fullmatch(pattern(text), said):
                    print(f"{page}:{line} shows\n{text}but the commands of line {before[0]} said\n{said}")
                    wrong += 1
            before = (line, kind, text)
    sys.exit(1 if wrong else 0)


{"scripts": scripts, "compare": compare}[sys.argv[1]](*sys.argv[2:])
