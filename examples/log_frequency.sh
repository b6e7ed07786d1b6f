#!/bin/sh
# A macro: notes the frequency of the test, its first input, with a name, its second.
echo "$1 Hz: $2" >> frequencies.log
