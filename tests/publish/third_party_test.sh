#!/usr/bin/env bash
# Every file in third_party/ has the sum that stands beside it, and none is without one.
set -euo pipefail
status=0
for folder in "$1"/*/; do
    cd "$folder"
    sha256sum --check --quiet --strict SHA256 || status=1
    for file in *; do
        [[ $file == SHA256 ]] || grep -q "  $file\$" SHA256 || { echo "$folder$file has no sum"; status=1; }
    done
done
exit $status
