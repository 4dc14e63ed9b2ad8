#!/usr/bin/env bash
# The shipped pages: every link leads somewhere, nothing is fetched from elsewhere, each is a whole page in German.
pages=$1
failures=0
fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}
for page in "$pages"/*.htm "$pages"/*.html; do
  name=$(basename "$page")
  case $name in err2.html) continue ;; esac
  grep -q '<html lang="de">' "$page" || fail "$name: no language"
  grep -q '<title>.' "$page" || fail "$name: no title"
  [ "$(grep -c '<h1>' "$page")" -eq 1 ] || fail "$name: not one h1"
  ! grep -qiE '<script|<iframe|src="https?:|<link[^>]*https?:|@import|url\(' "$page" || fail "$name: something from elsewhere"
  while read -r link; do
    case $link in
    lo:* | speak:*) continue ;;
    \#*) target=$name anchor=${link#\#} ;;
    *\#*) target=${link%%\#*} anchor=${link#*\#} ;;
    *) target=$link anchor= ;;
    esac
    [ -f "$pages/$target" ] || fail "$name: no $target"
    [ -z "$anchor" ] || grep -q "id=\"$anchor\"" "$pages/$target" || fail "$name: no $link"
  done < <(grep -o 'href="[^"]*"' "$page" | sed 's/^href="//; s/"$//')
  xmllint --html --noout "$page" 2>&1 | grep -v 'Tag \(main\|nav\) invalid' | grep 'error' && fail "$name: not valid"
done
! grep -qE 'https?:|@import|url\(' "$pages/lorelin.css" || fail "lorelin.css: something from elsewhere"
echo "$failures failures"
exit $((failures > 0))
