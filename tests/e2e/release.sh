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
