#!/usr/bin/env bash
# Brings res/lang_*.ts up to date with the tr() texts and forms of the sources. Texts that are new
# come in unfinished; texts that are gone go.
set -euo pipefail
cd "$(dirname "$0")/.."
lupdate=$(command -v lupdate || echo /usr/lib/qt5/bin/lupdate)
"$lupdate" -silent -recursive -I . -no-obsolete -locations none -source-language en \
    app highlight editor web browser mainwindow -ts res/lang_zh_cn.ts res/lang_ja_jp.ts
