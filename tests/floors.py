#!/usr/bin/env python3
"""Fails on an #include that points to the same floor or upward, and where a source asks which system it is made for.

The floors are the picture in README.md. What differs between the systems lies in a source for each of them, of which
CMake picks one: platform/linux/ and platform/windows/, desktop/toolkit/gtk*.cpp and msw*.cpp.
"""
import pathlib
import re
import sys

top = pathlib.Path(sys.argv[1])
picture = re.findall(r"^ +(\d+)  ((?:[a-z]+/ +)+)", (top / "README.md").read_text(encoding="utf-8"), re.M)
floors = {folder.rstrip("/"): int(number) for number, folders in picture for folder in folders.split()}
wrong = [f"{folder}/ is on a floor, but there is no such folder" for folder in floors if not (top / folder).is_dir()]
sources = [p for p in top.glob("*/**/*") if p.suffix in (".h", ".cpp") and not p.relative_to(top).parts[0].startswith("build")]
asksForSystem = re.compile(r"^\s*#\s*(?:el)?if.*\b(__WX\w+__|_WIN32|WIN32|__linux__|__unix__|__APPLE__|_MSC_VER)\b", re.M)
checked = 0
for source in sources:
    own = source.relative_to(top).parts[0]
    if own in ("tests", "bench"):
        continue
    if own not in floors:
        wrong.append(f"{source.relative_to(top)}: {own}/ is on no floor")
        continue
    text = source.read_text(encoding="utf-8")
    if found := asksForSystem.search(text):
        wrong.append(f"{source.relative_to(top)} asks for {found[1]}")
    for included in re.findall(r'^#include "([^/"]+)/', text, re.M):
        checked += 1
        if included != own and floors.get(included, 99) >= floors[own]:
            wrong.append(f"{source.relative_to(top)} includes {included}/, which is not below {own}/")
print("\n".join(wrong) or f"{checked} includes of {len(floors)} folders point downward")
sys.exit(1 if wrong or checked < 500 else 0)
