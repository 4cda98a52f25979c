#!/usr/bin/env bash
# same_bytes.sh FIRST SECOND TREE: zip and installer that two folders have are equal, and no file in them tells where the tree
# lies that they were made from.
set -euo pipefail
for file in dayvane.zip setup.exe; do
    cmp "$1/$file" "$2/$file" || {
        diff -rq "$1/dayvane" "$2/dayvane" || true
        exit 1
    }
done
! grep -rlF "$3" "$1/dayvane" || { echo "these name $3" && exit 1; }
echo "the same bytes"
