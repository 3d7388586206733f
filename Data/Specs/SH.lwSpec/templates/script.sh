#!/usr/bin/env bash
set -euo pipefail

main() {
  :
}

main "$@"
