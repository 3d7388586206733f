#!/bin/bash
# Run by a login shell at start: prints the PATH the user's profile sets up.
printf '%s\n' "$PATH"
