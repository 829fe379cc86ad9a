#!/usr/bin/env bash
# Takes the pictures of the guide anew: of all that pictures.sh takes those that the guide names, to lang/pictures, no
# wider than its page.
#   guide_pictures.sh TAV
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
taken=$(mktemp -d)
trap 'rm -rf "$taken"' EXIT
bash "$here/tests/screen/pictures.sh" "$1" "$taken"
mkdir -p "$here/lang/pictures"
for name in $(grep -oh 'src="pictures/[^"]*' "$here"/lang/*.hlp | cut -d/ -f2 | sort -u); do
  convert "$taken/$name" -resize '640x>' -strip -colors 64 "PNG8:$here/lang/pictures/$name"
done
