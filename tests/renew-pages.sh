#!/bin/sh
# Writes the approved pages anew from what the forms print now, and shows which of them changed.
# Look at the whole difference before it is committed.
set -eu

cd "$(dirname "$0")/.."
cmake --preset debug --log-level=WARNING
cmake --build build/debug --target core_tests
QFR_RENEW_PAGES=1 build/debug/bin/core_tests --gtest_filter='Pages.*' --gtest_brief=1
git status --short -- tests/pages
git diff --stat -- tests/pages
