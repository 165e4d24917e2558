#!/usr/bin/env bash
# run_samples.sh PROGRAM OUT: what the program makes of the shipped tracings, and a report in OUT for the browser.
set -euo pipefail
cd "$(dirname "$0")/.."

program=$1
out=$2
samples=data/samples
mkdir -p "$out"

show() {
  printf '\n$ ceph %s\n' "$*"
  # Code 1 says that something could not be told, which the output itself explains.
  "$program" "$@" --data data/ANAITEM || [[ $? -eq 1 ]]
}

show analyses
show table "$samples/adult.json"
show surgery "$samples/child-before.json" "$samples/child-after.json"
show diagnose "$samples/adult.json"

"$program" table "$samples/adult.json" --analysis all --data data/ANAITEM --format html -o "$out/adult.html"
printf '\nThe whole report of the adult, every lateral analysis: %s\n' "$out/adult.html"

"$program" draw "$samples/adult.json" --labels -o "$out/adult.png"
"$program" draw "$samples/child-before.json" --over "$samples/child-after.json" -o "$out/growth.png"
"$program" report "$samples/adult.json" --data data/ANAITEM -o "$out/adult.pdf"
printf 'The tracing: %s\nThe child before and after, laid over each other on S-N: %s\n' "$out/adult.png" "$out/growth.png"
printf 'The report for the record, on A4: %s\n' "$out/adult.pdf"
