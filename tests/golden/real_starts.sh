#!/usr/bin/env bash
# Pictures of the real game's first round for a few seeds (default setup, two players).
# Usage: real_starts.sh GAME_BINARY OUTPUT_FOLDER
set -uo pipefail
source "$(dirname "$0")/../e2e/xsession.sh"
e2e_begin "$1"
out=$2
for seed in 7 42 1234; do
  start_game --seed $seed
  wait_window "Grumbo 2 - Kravenmoor"
  click "$WIN" 286 162
  wait_window "Setup"
  click "$WIN" 286 162
  wait_window "Player 1"
  player=$WIN
  type_into "$player" "Ann"
  press "$player" Return
  wait_window "Player 2"
  type_into "$player" "Bob"
  press "$player" Return
  wait_window "Ann - 0 pts" 60
  match=$WIN
  sleep 3
  import -window "$match" "$out/start-seed$seed.png"
  kill $GAME_PID; wait $GAME_PID 2>/dev/null
done
