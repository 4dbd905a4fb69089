#!/usr/bin/env bash
# update-translations.sh [FOLDER]: brings lang_*.ts in FOLDER (res/ without one) up to date with the
# tr() texts and forms of the sources. New texts are added as unfinished, and unused ones are removed.
set -euo pipefail
folder=$(realpath "${1:-$(dirname "$0")/../res}")
cd "$(dirname "$0")/.."
lupdate=$(command -v lupdate || echo /usr/lib/qt5/bin/lupdate)
"$lupdate" -silent -recursive -extensions cpp,h,ui -I . -no-obsolete -locations none -source-language en \
    app widgets spelling highlight editor web browser findinfiles pageedit document mainwindow noengine \
    -ts "$folder/lang_zh_cn.ts" "$folder/lang_ja_jp.ts"
