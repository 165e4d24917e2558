#!/usr/bin/env bash
# Installs the Debian packages named in the given lists, only when some of them are missing.
set -euo pipefail

wanted=()
for list in "$@"; do
  while read -r package _; do
    [[ -z $package || $package == \#* ]] || wanted+=("$package")
  done < "$list"
done

if ! command -v dpkg-query > /dev/null; then
  echo "This is no Debian system: please provide ${wanted[*]} yourself." >&2
  exit 0
fi

missing=()
for package in "${wanted[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Abbrev}\n' "$package" 2> /dev/null | head -n 1 || true)
  [[ $state == ii* ]] || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $(id -u) -ne 0 ]]; then
  if ! command -v sudo > /dev/null; then
    echo "Packages are missing. Please run as root: apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

echo "Installing: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update -qq &&
       "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
         apt-get install -y -qq --no-install-recommends "${missing[@]}"; } > "$log" 2>&1 < /dev/null; then
  cat "$log" >&2
  exit 1
fi
