#!/usr/bin/env bash
# Prints what a whole run of the workbench costs for each frequency, as a table of instructions:
#
#   bench/whole_runs.sh ACE_WORKBENCH
#
# The example of a test with three subranges runs with two step widths, under cachegrind. The
# difference, divided by the number of the further frequencies, is free of the start of the program
# and of the load. It exits with 1 when a run does not finish.
set -euo pipefail
shopt -s inherit_errexit  # a figure comes out of $(...), and what fails there ends all
workbench=$(realpath "$1")
cd "$(dirname "$0")/.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# run FILE: the report of the run; one that did not do its work must not count as a cheap one.
run() {
  "$workbench" run "$1" --devices examples/ri_devices.ini >"$folder/report"
  grep -q '^Errors     none$' "$folder/report"
}

# frequencies FILE: as the report tells them for each subrange.
frequencies() {
  run "$1"
  awk '/^Sweep / && match($0, /[0-9]+ frequenc/) { sum += substr($0, RSTART) } END { print sum }' \
    "$folder/report"
}

instructions() {
  valgrind --tool=cachegrind --cache-sim=no --cachegrind-out-file=/dev/null \
    "$workbench" run "$1" --devices examples/ri_devices.ini 2>&1 >/dev/null |
    awk '/I *refs:/ { gsub(",", "", $NF); print $NF }'
}

# a_frequency FILE WIDE NARROW: instructions of one frequency, of two widths of the steps in percent.
a_frequency() {
  local width counts=() costs=()
  for width in "$2" "$3"; do
    sed "s/^StepPercent=.*/StepPercent=$width/" "$1" >"$folder/run.ini"
    counts+=("$(frequencies "$folder/run.ini")")
    costs+=("$(instructions "$folder/run.ini")")
  done
  echo $(((costs[1] - costs[0]) / (counts[1] - counts[0])))
}

# row NAME FIGURE LIMIT: the limit is empty where there is none.
row() {
  awk -v name="$1" -v figure="$2" -v limit="$3" 'BEGIN {
    printf "| %s | %s%s |\n", name, figure,
           limit == "" ? "" : " (at most " limit (figure > limit + 0 ? ": missed" : "") ")" }'
}

example=examples/ri_template.ini
# The check of the equipment alone: an action on a device, which takes its settings from the file.
sed -e 's/^NumOfFreqActions=.*/NumOfFreqActions=1/' -e '/^FrequAction[13]=/d' \
  -e 's/^FrequAction2=/FrequAction1=/' "$example" >"$folder/device.ini"
{
  cat "$folder/device.ini"
  awk 'BEGIN { for (i = 1; i <= 10000; ++i) {
    printf "[Other%d]\r\nTitle=a section of another program\r\nInput=DI1\r\n", i } }'
} >"$folder/large.ini"

echo "| A whole run of the workbench, virtual clock | Instructions a frequency |"
echo "|---|---|"
three=$(a_frequency "$example" 1 0.5)
row "a wait, a check of the equipment and a macro" "$three" 200000
alone=$(a_frequency "$folder/device.ini" 10 5)
large=$(a_frequency "$folder/large.ini" 10 5)
row "a check of the equipment alone" "$alone" ""
row "the same, 10,000 other sections in the file" "$large" ""
row "10,000 other sections beside none" \
  "$(awk -v a="$large" -v b="$alone" 'BEGIN { printf "%.2f", a / b }')" 1.1
