#!/usr/bin/env python3
"""Fails with a list of what is wrong with an EPUB 3 that has its sound: spokenBook.py BOOK CHAPTERS [SECONDS]

SECONDS: how far the beginning of a sentence may be from the end of a silence.
"""
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
import zipfile

book, chapters = sys.argv[1], int(sys.argv[2])
tolerance = float(sys.argv[3]) if len(sys.argv) > 3 else None
OPF, XHTML, SMIL, OPS = ("{%s}" % name for name in (
    "http://www.idpf.org/2007/opf", "http://www.w3.org/1999/xhtml", "http://www.w3.org/ns/SMIL",
    "http://www.idpf.org/2007/ops"))
problems = []


def expect(right, text):
    if not right:
        problems.append(text)


def seconds(clock):
    hours, minutes, rest = clock.split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(rest)


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True)


def length(sound):
    return float(output("ffprobe", "-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", sound).stdout)


def beginnings(sound):
    found = output("ffmpeg", "-i", sound, "-af", "silencedetect=noise=-38dB:d=0.22", "-f", "null", "-").stderr
    return [float(value) for value in re.findall(r"silence_end: ([0-9.]+)", found)]


def clips(archive, overlay):
    """What an overlay ties together: (page, sentence, sound, begin, end)."""
    for pair in xml.fromstring(archive.read("EPUB/" + overlay)).iter(SMIL + "par"):
        page, sentence = pair.find(SMIL + "text").get("src").split("#")
        sound = pair.find(SMIL + "audio")
        yield (page.replace("../", ""), sentence, sound.get("src").replace("../", ""), seconds(sound.get("clipBegin")),
               seconds(sound.get("clipEnd")))


def check_overlay(archive, item, page, declared):
    """How long it is."""
    sentences = [span.get("id") for span in xml.fromstring(archive.read("EPUB/" + page)).iter(XHTML + "span")]
    parts = list(clips(archive, item))
    expect(parts, f"{item}: empty")
    expect([part[1] for part in parts] == [name for name in sentences if name in {part[1] for part in parts}],
           f"{item}: not in the order of the page")
    expect(all(part[0] == page for part in parts), f"{item}: of another page")
    times = [time for part in parts for time in part[3:]]
    expect(times == sorted(times), f"{item}: the times go back")
    whole = sum(end - begin for *_, begin, end in parts)
    expect(abs(whole - declared) < 0.002, f"{item}: {whole} s, but {declared} s are declared")
    with tempfile.TemporaryDirectory() as folder:
        sound = archive.extract("EPUB/" + parts[0][2], folder)
        expect(times[-1] <= length(sound) + 0.001, f"{item}: longer than its sound")
        if tolerance is not None:
            heard = beginnings(sound)
            for *_, begin, _ in parts[1:]:
                expect(any(abs(begin - at) < tolerance for at in heard), f"{item}: no sound begins at {begin}")
    return whole


with zipfile.ZipFile(book) as archive:
    expect(archive.testzip() is None, "damaged")
    first = archive.infolist()[0]
    expect((first.filename, first.compress_type, first.extra) == ("mimetype", zipfile.ZIP_STORED, b""), "mimetype")
    expect(archive.read("mimetype") == b"application/epub+zip", "mimetype says something else")
    package = xml.fromstring(archive.read("EPUB/package.opf"))
    items = {item.get("id"): item for item in package.iter(OPF + "item")}
    named = {"EPUB/" + item.get("href") for item in items.values()}
    present = set(archive.namelist()) - {"mimetype", "META-INF/container.xml", "EPUB/package.opf"}
    expect(named == present, f"only named: {named - present}, only there: {present - named}")
    for name in archive.namelist():
        if name.endswith((".xhtml", ".smil", ".opf", ".xml")):
            xml.fromstring(archive.read(name))
    durations = {meta.get("refines"): seconds(meta.text) for meta in package.iter(OPF + "meta")
                 if meta.get("property") == "media:duration"}
    expect(any(meta.get("property") == "media:active-class" for meta in package.iter(OPF + "meta")), "no active class")
    spine = [reference.get("idref") for reference in package.iter(OPF + "itemref")]
    expect(len(spine) == chapters, f"{len(spine)} chapters instead of {chapters}")
    whole = 0
    for page in spine:
        overlay = items[page].get("media-overlay")
        if overlay is not None:
            whole += check_overlay(archive, items[overlay].get("href"), items[page].get("href"), durations["#" + overlay])
    expect(abs(whole - durations[None]) < 0.01, f"{whole} s in all, but {durations[None]} s are declared")
    contents = xml.fromstring(archive.read("EPUB/nav.xhtml"))
    expect(contents.find(f".//{XHTML}nav[@{OPS}type='toc']") is not None, "no list of contents")
    for link in contents.iter(XHTML + "a"):
        page, _, place = link.get("href").partition("#")
        ids = {element.get("id") for element in xml.fromstring(archive.read("EPUB/" + page)).iter()}
        expect(not place or place in ids, f"the contents lead to {link.get('href')}, which is not there")

print("\n".join(problems))
sys.exit(1 if problems else 0)
