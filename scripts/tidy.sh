#!/usr/bin/env bash
# clang-tidy, every finding an error.
#   tidy.sh --all      every source of the tree
#   tidy.sh [BASE]     what changed since BASE; a changed header is seen through one source that includes it.
# Without BASE: since the branch left origin/main (or main); on that branch itself, or where the history is too
# short to tell, the last TIDY_COMMITS commits. At most TIDY_LIMIT sources; where nothing tells what changed, that
# many taken at random, the choice following from the commit, so that a run of commits sees the whole tree.
set -euo pipefail
cd "$(dirname "$0")/.."

limit=${TIDY_LIMIT:-24}
commits=${TIDY_COMMITS:-15}

find_base() {
  local branch base
  for branch in origin/main main; do
    base=$(git merge-base HEAD "$branch" 2> /dev/null) || continue
    [[ $base == $(git rev-parse HEAD) ]] || { echo "$base"; return; }
  done
  git rev-parse --verify -q "HEAD~$commits" || true
}

all_sources() { git ls-files -- 'tool/*.cpp' 'apps/*.cpp' 'backends/*.cpp' 'tests/*.cpp' 'fuzz/*.cpp'; }

# Sources for a list of changed files on standard input, each once, the changed sources themselves first.
sources_of() {
  local headers=() file user
  while read -r file; do
    [[ -e $file ]] || continue
    case $file in
      tests/consumer/* | bench/*) ;;  # not in the tidy build
      *.cpp) echo "$file" ;;
      *.h) headers+=("$file") ;;
    esac
  done
  for file in "${headers[@]}"; do
    user=$(git grep -lF "#include \"$file\"" -- 'tool/*.cpp' 'apps/*.cpp' 'tests/*.cpp' 'fuzz/*.cpp' | head -n 1)
    [[ -z $user ]] || echo "$user"
  done
}

chosen() {
  local base=$1 found
  if [[ -n $base ]]; then
    found=$(git diff --name-only "$base" -- '*.h' '*.cpp' | sources_of | awk '!seen[$0]++')
  else
    found=$(all_sources | shuf --random-source=<(yes "$(git rev-parse HEAD 2> /dev/null || echo none)"))
  fi
  local count
  count=$(grep -c . <<< "$found" || true)
  if ((count > limit)); then
    echo "clang-tidy: $count sources to look at, taking $limit (\`make tidy\` takes all)" >&2
    found=$(shuf --random-source=<(yes "$(git rev-parse HEAD)") <<< "$found" | head -n "$limit")
  fi
  echo "$found"
}

if [[ ${1:-} == --all ]]; then
  list=$(all_sources | grep -v '^tests/consumer/')
else
  list=$(chosen "${1:-$(find_base)}")
fi
[[ -n $list ]] || { echo "clang-tidy: nothing changed"; exit 0; }

log=$(mktemp)
trap 'rm -f "$log"' EXIT
cmake --preset tidy > "$log" 2>&1 || { cat "$log" >&2; exit 1; }
# A source that the build does not know yet (a folder that joins later) has no compile command.
known=$(grep -o '"file": "[^"]*"' build/tidy/compile_commands.json | sed "s|.*\"$PWD/||; s|\"$||")
list=$(grep -Fx -f <(echo "$known") <<< "$list" || true)
[[ -n $list ]] || { echo "clang-tidy: nothing changed"; exit 0; }

status=0
xargs -P "$(nproc)" -n 1 clang-tidy -p build/tidy --quiet <<< "$list" > "$log" 2> /dev/null || status=$?
if ((status)); then
  cat "$log"
  echo "clang-tidy: findings in $(grep -c . <<< "$list") sources looked at" >&2
  exit 1
fi
echo "clang-tidy: $(grep -c . <<< "$list") sources, no findings"
