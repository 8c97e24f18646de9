#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Joins sources for the analysers, which spend nearly all of their time on Qt's headers.

Usage: lint_batches.py join <build folder> <batch folder> <most> < list of sources
       lint_batches.py name < report
`join` writes files that each hold up to <most> sources of one folder, with the compile commands for them, and prints
their names; `name` replaces places in such files by the places in the sources.
"""
import bisect
import json
import os
import re
import sys


def compile_commands(build):
    with open(os.path.join(build, 'compile_commands.json')) as file:
        entries = json.load(file)
    return {os.path.relpath(entry['file']): entry for entry in entries}


def batches(sources, commands, most):
    """Sources that are compiled alike in one folder, at most so many together."""
    alike = {}
    for source in sources:
        entry = commands[source]
        flags = re.sub(r' -o .*', '', entry['command'])
        alike.setdefault((os.path.dirname(source), flags, entry['directory']), []).append(source)
    for (folder, flags, directory), files in alike.items():
        for first in range(0, len(files), most):
            yield folder, flags, directory, files[first:first + most]


def write_batch(path, files):
    with open(path, 'w') as batch:
        for name in files:
            with open(name) as source:
                batch.write(f'#line 1 "{os.path.abspath(name)}"\n{source.read()}\n')


def join(build, folder, most):
    os.makedirs(folder, exist_ok=True)
    sources = [line.strip() for line in sys.stdin]
    commands = compile_commands(build)
    for source in sources:
        if source not in commands:
            print(f'{source} is not built here and not analysed', file=sys.stderr)
    entries = []
    for origin, flags, directory, files in batches([s for s in sources if s in commands], commands, most):
        path = os.path.abspath(os.path.join(folder, f'batch_{len(entries)}.cpp'))
        write_batch(path, files)
        entries.append({'directory': directory, 'file': path,
                        'command': f'{flags} -iquote {os.path.abspath(origin)} -c {path}'})
    with open(os.path.join(folder, 'compile_commands.json'), 'w') as file:
        json.dump(entries, file)
    for entry in entries: # now that they can be looked up
        print(entry['file'])


def origins(batch):
    """The lines at which sources begin in a batch, and the sources."""
    begins, names = [], []
    with open(batch) as file:
        for number, line in enumerate(file, 2):
            if match := re.match(r'#line 1 "(.*)"', line):
                begins.append(number)
                names.append(match[1])
    return begins, names


def name():
    known = {}

    def original(match):
        batch, line = match[1], int(match[2])
        begins, names = known.setdefault(batch, origins(batch))
        index = bisect.bisect_right(begins, line) - 1
        return f'{names[index]}:{line - begins[index] + 1}:'

    for line in sys.stdin:
        print(re.sub(r'(\S*/batch_\d+\.cpp):(\d+):', original, line), end='', flush=True)


if __name__ == '__main__':
    if sys.argv[1] == 'join':
        join(sys.argv[2], sys.argv[3], int(sys.argv[4]))
    else:
        name()
