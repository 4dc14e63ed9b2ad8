#!/usr/bin/env bash
# No release is made of sources that disagree about its version.
source=$2
. "$(dirname "$0")/expect.sh"
tree=$home/tree
version=$(sed -n 's/^project(lorelin VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")

fresh() {
  rm -rf "$tree"
  mkdir -p "$tree"/{tools,debian,packaging/linux}
  cp "$source"/{CMakeLists.txt,README.md} "$tree"
  cp "$source/tools/release" "$tree/tools"
  cp "$source/debian/changelog" "$tree/debian"
  cp "$source"/packaging/linux/*.metainfo.xml "$tree/packaging/linux"
}
refuses() { # refuses PLACE FILE EXPRESSION: after this change of a file the place is named
  fresh
  sed -i "$3" "$tree/$2"
  ! cmp -s "$tree/$2" "$source/$2" && exits 1 "$tree/tools/release" --check "$version" && says "$1"
}
refuses_another() { fresh && exits 1 "$tree/tools/release" --check 99.0.0 && says "No release: "; }
refuses_uncommitted() {
  fresh
  git -C "$tree" init -q
  exits 1 "$tree/tools/release" "$version" source && says "not committed"
}

# Packages and archives with a program that names the text.
makes() { # makes TEXT: in bytes as they are printed by printf
  rm -rf "$home/made" && mkdir -p "$home/made"/{deb/DEBIAN,deb/usr/bin}
  printf "\\x7fELF\\0$1\\0" >"$home/made/deb/usr/bin/program"
  printf 'Package: probe\nVersion: 1\nArchitecture: all\nMaintainer: A <a@b.example>\nDescription: probe\n' >"$home/made/deb/DEBIAN/control"
  dpkg-deb --build --root-owner-group "$home/made/deb" "$home/made/probe.deb" >/dev/null
  (cd "$home/made/deb/usr" && python3 -m zipfile -c "$home/made/probe.zip" bin)
  cp "$home/made/deb/usr/bin/program" "$home/made/probe.exe"
}
passes() {
  makes "$1"
  exits 0 "$tree/tools/release" --check-paths "$home"/made/probe.{deb,zip,exe}
}
names() { # names TEXT: each of the three is refused
  local kind
  makes "$1"
  for kind in deb zip exe; do
    exits 1 "$tree/tools/release" --check-paths "$home/made/probe.$kind" && says "probe.$kind names " || return 1
  done
}
wide() { sed 's/./&\\x00/g' <<<"$1"; }

fresh
check "folders of everybody's system are no secret" passes "/usr/share/lorelin/app/MainWindow.cpp"
check "a program that names the tree is refused" names "$tree/app/MainWindow.cpp"
check "one that names it in the letters of Windows is refused" names "$(wide "$tree/app/MainWindow.cpp")"
check "one that names the cache is refused" names "${XDG_CACHE_HOME:-$HOME/.cache}/lorelin/wxwidgets3.2/src/common/log.cpp"
check "one that names the folder of its user is refused" names "${HOME%/}/x.cpp"
check "the sources agree" exits 0 "$source/tools/release" --check "$version"
check "another version is refused" refuses_another
check "what is no version is refused" exits 2 "$source/tools/release" --check eins
check "another version in CMake is refused" refuses CMakeLists.txt CMakeLists.txt "s/^project(lorelin VERSION [0-9.]*/project(lorelin VERSION 0.9.9/"
check "an older changelog is refused" refuses debian/changelog debian/changelog '1s/(.*)/(0.9.9)/'
check "a release that the metainfo lacks is refused" refuses "the metainfo's first release" packaging/linux/org.lorelin.lorelin.metainfo.xml \
  's/<release version="[^"]*"/<release version="0.9.9"/'
check "another day than that of the changelog is refused" refuses "the metainfo's first release" \
  packaging/linux/org.lorelin.lorelin.metainfo.xml 's/date="[^"]*"/date="2001-01-01"/'
check "an older README is refused" refuses README.md README.md 's/Lorelin-[0-9.]*-win64/Lorelin-0.9.9-win64/'
check "changes that are not committed are refused" refuses_uncommitted
exit $((failures > 0))
