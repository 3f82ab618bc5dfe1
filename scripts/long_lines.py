#!/usr/bin/env python3
"""Counts the lines beyond the margin before and after wrapping, and tells why those that are left are.

  scripts/long_lines.py [options] KERFLINE FILE_OR_FOLDER...

Each file is laid out twice by the same scheme, with and without LINE_WRAP. A line that is still too
long belongs to the first of these that holds:

  region      it lies between format-off markers
  directive   it belongs to a preprocessor directive
  comment     without its comment it would be within the margin
  long token  it has no place to break, and one of its tokens is as long as half of the margin
  no place    nothing on it can be broken: declarators, "->" chains, "*", "a[b]", the head of a call, ...
  type        the only places are in a type or a name, between template brackets, or in a case label
  left side   the only places are on the left of an assignment, which is not broken
  it fits     what could be broken ends within the margin; a body or a comment that follows does not
  NODE        a break might help; NODE is the construct that could be broken

Options:
  --scheme NAME      scheme for both runs (default)
  --margin N         RIGHT_MARGIN (as in the scheme)
  --set NAME=VALUE   one more option, any number of times
  --limit N          take N of the files, evenly spread
  --show NODE        print the lines of that kind
"""
import argparse
import os
import re
import subprocess
import sys

TAB = 8
CLOSERS = {")": "(", "]": "[", "}": "{"}
PLACES = {",", "&&", "||", ":", "/", "+", "-", "%", "<<", ">>", "<", ">", "==", "!=", "|", "?"}
BREAKABLE = {"ExprNode", "ParameterListNode", "BaseClauseListNode", "InitializerListNode", "EnumBodyNode"}
UNBREAKABLE = {"TypeNode", "IdNode", "FunctionReturnNode", "ClassNameNode", "ClassHeadNode", "CaseNode", "TextNode",
               "AsmNode", "CommentNode", "FunctionHeadNode"}
STUCK = {")", "]", "}", ",", ";", "{"}
TOKEN = re.compile(r"(\d+):(\d+)-(\d+):(\d+) (\S+|<[^>]*>) ")
NODE = re.compile(r"\s*(?:\w+: )?(\w+) (\d+):(\d+)-(\d+):(\d+)")


def run(command, text):
    return subprocess.run(command, input=text, capture_output=True, check=True).stdout


def width(line):
    column = 0
    for c in line:
        column = column + TAB - column % TAB if c == "\t" else column + 1
    return column


class Token:
    def __init__(self, match, lines):
        self.line, self.column, self.end_line, self.end_column = (int(g) for g in match.groups()[:4])
        self.kind = match.group(5)
        text = lines[self.line - 1] if self.line <= len(lines) else ""
        self.start = width(text[: self.column - 1])
        stop = self.end_column if self.end_line == self.line else len(text)
        self.stop = width(text[:stop])
        self.is_comment = self.kind in ("<line", "<block", "<comment>")
        self.is_directive = self.kind == "<directive>"


def tokens_by_line(dump, lines):
    """The tokens that touch each line, by its number from 1."""
    result = {}
    for row in dump.split("\n"):
        match = TOKEN.match(row)
        if not match:
            continue
        token = Token(match, lines)
        last = token.end_line if token.end_column > 0 else token.end_line - 1
        for line in range(token.line, last + 1):
            result.setdefault(line, []).append(token)
    return result


def nodes_of(dump):
    return [(m.group(1), (int(m.group(2)), int(m.group(3))), (int(m.group(4)), int(m.group(5))))
            for m in map(NODE.match, dump.split("\n")) if m]


def innermost(nodes, line, column, kinds):
    """The smallest node of some kinds around a place, or None: a node follows the one that it is part of."""
    found = None
    for node in nodes:
        if node[1] > (line, column):
            break
        if node[2] >= (line, column) and node[0] in kinds:
            found = node
    return found


def brackets_around(code):
    """For each token of a line the close brackets that the line holds around it, from the inside; a None among
    them stands for a bracket that closes on a later line."""
    around, still_open = [[] for _ in code], []
    for i in reversed(range(len(code))):
        if code[i].kind in CLOSERS:
            still_open.append(i)
        around[i] = list(reversed(still_open))
        if code[i].kind in CLOSERS.values() and still_open:
            still_open.pop()
    unclosed = 0
    for i, token in enumerate(code):
        if token.kind in CLOSERS.values() and not any(CLOSERS[code[c].kind] == token.kind and c > i
                                                      for c in around[i][:1]):
            unclosed += 1
        elif unclosed and not around[i]:
            around[i] = [None]
    return around


def places_of(code):
    """The index of each token at which a break is made somewhere, and whether it is in template brackets."""
    squares = angles = 0
    for i, token in enumerate(code):
        before = code[i - 1] if i > 0 else None
        is_glued = before is not None and before.stop == token.start
        squares += (token.kind == "[") - (token.kind == "]")
        if token.kind == "<" and is_glued:
            angles += 1
        elif angles > 0 and token.kind in (">", ">>"):
            angles = max(angles - len(token.kind), 0)
        elif token.kind in PLACES and squares <= 0 and i > 0:
            yield i, angles > 0


def reach(code, index, node, around):
    """The column up to which the brackets or the node around a token, and what is stuck to them, reach."""
    inside = [i for i, t in enumerate(code) if (t.line, t.column) <= node[2]]
    last = inside[-1]
    if around[index]:
        last = len(code) - 1 if around[index][0] is None else min(last, around[index][0])
    while last + 1 < len(code) and code[last + 1].kind in STUCK and code[last + 1].start <= code[last].stop + 1:
        last += 1
    return code[last].stop


def judge_places(code, line, nodes, margin):
    verdict = None
    around = brackets_around(code)
    for i, in_angles in places_of(code):
        if all(t.kind in STUCK for t in code[i + 1:]) or code[i].start >= margin:
            continue
        node = (innermost(nodes, line, code[i].column, {"EnumBodyNode"}) or
                innermost(nodes, line, code[i].column, BREAKABLE | UNBREAKABLE))
        is_place = node is not None and (node[0] == "ExprNode" or code[i].kind == ",")
        if not is_place or node[0] in UNBREAKABLE or in_angles:
            verdict = verdict or "type"
        elif any(t.kind == "=" for t in code[i:]) and node[0] == "ExprNode" and not around[i][1:]:
            verdict = verdict or "left side"
        elif reach(code, i, node, around) <= margin:
            verdict = "it fits"
        else:
            return node[0]
    return verdict


def reason(line, text, tokens, nodes, margin, regions):
    if line in regions:
        return "region"
    if any(t.is_directive for t in tokens):
        return "directive"
    code = [t for t in tokens if not t.is_comment]
    if not code or max(t.stop if t.end_line == line else margin + 1 for t in code) <= margin:
        return "comment"
    here = [t for t in code if t.line == line]
    verdict = judge_places(here, line, nodes, margin)
    if verdict is None:
        longest = max(t.stop - t.start if t.line == t.end_line else margin for t in code)
        return "long token" if 2 * longest >= margin else "no place"
    return verdict


def region_lines(lines):
    result, inside = set(), False
    for number, text in enumerate(lines, 1):
        if "KL-FORMAT-OFF" in text:
            inside = True
        if inside:
            result.add(number)
        if "KL-FORMAT-ON" in text:
            inside = False
    return result


def files_of(paths, limit):
    found = []
    for path in paths:
        if os.path.isfile(path):
            found.append(path)
        for folder, _, names in os.walk(path):
            found += [os.path.join(folder, n) for n in names
                      if n.rpartition(".")[2] in ("c", "cc", "cpp", "cxx", "h", "hh", "hpp", "hxx")]
    found.sort()
    return found[:: max(len(found) // limit, 1)][:limit] if limit else found


def margin_of(command):
    for row in run(command + ["--dump=scheme", "-"], b"").decode().split("\n"):
        match = re.search(r"\bRIGHT_MARGIN\b\D*(\d+)", row)
        if match:
            return int(match.group(1))
    sys.exit("no RIGHT_MARGIN in this scheme: give --margin")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("kerfline")
    parser.add_argument("path", nargs="+")
    parser.add_argument("--scheme", default="default")
    parser.add_argument("--margin", type=int)
    parser.add_argument("--set", action="append", default=[])
    parser.add_argument("--limit", type=int, default=0)
    parser.add_argument("--show")
    args = parser.parse_args()

    command = [args.kerfline, "--scheme", args.scheme]
    for option in args.set + ([f"RIGHT_MARGIN={args.margin}"] if args.margin else []):
        command += ["--set", option]
    margin = args.margin or margin_of(command)
    counts, total = {}, {"files": 0, "refused": 0, "lines": 0, "source": 0, "unwrapped": 0, "wrapped": 0}
    for path in files_of(args.path, args.limit):
        with open(path, "rb") as file:
            source = file.read()
        try:
            plain = run(command + ["--set", "LINE_WRAP=0", "-"], source)
            wrapped = run(command + ["--set", "LINE_WRAP=1", "-"], source)
        except subprocess.CalledProcessError:
            total["refused"] += 1
            continue
        lines = wrapped.decode("latin-1").replace("\r\n", "\n").split("\n")
        long = [n for n, text in enumerate(lines, 1) if width(text) > margin]
        total["files"] += 1
        total["lines"] += len(lines)
        for name, text in (("source", source), ("unwrapped", plain)):
            total[name] += sum(width(t.rstrip("\r")) > margin for t in text.decode("latin-1").split("\n"))
        total["wrapped"] += len(long)
        if not long:
            continue
        text = "\n".join(lines).encode("latin-1")
        tokens = tokens_by_line(run([args.kerfline, "--dump=tokens", "-"], text).decode("latin-1"), lines)
        nodes = nodes_of(run([args.kerfline, "--dump=tree", "-"], text).decode("latin-1"))
        regions = region_lines(lines)
        for number in long:
            why = reason(number, lines[number - 1], tokens.get(number, []), nodes, margin, regions)
            counts[why] = counts.get(why, 0) + 1
            if why == args.show:
                print(f"{path}:{number}: {lines[number - 1].strip()}")
    print(f"{args.scheme}, margin {margin}: {total['files']} files, {total['refused']} refused, "
          f"{total['lines']} lines; beyond the margin: {total['source']} in the source, "
          f"{total['unwrapped']} laid out without wrapping, {total['wrapped']} with it")
    for why, count in sorted(counts.items(), key=lambda item: -item[1]):
        print(f"{count:7}  {why}")


if __name__ == "__main__":
    main()
