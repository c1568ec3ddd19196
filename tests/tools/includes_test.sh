#!/usr/bin/env bash
# tools/includes passes a sound tree and names each wrong include, its line and its reason.
set -euo pipefail
includes=$(realpath "$(dirname "$0")/../../tools/includes")
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
cd "$root"

mkdir -p src/app src/gauges src/text src/platform/wine/cabinet src/platform/gtk src/stray
cat >ARCHITECTURE.md <<'TABLE'
| Folder | May include | What it holds |
|---|---|---|
| `app` | `gauges`, `platform` | the form, over `text` |
| `gauges` | `platform`, `text` | panels |
| `platform/wine` | `platform` | a Wine prefix |
| `platform/gtk` | `platform` | widgets |
| `platform` | | neutral headers |
| `text` | | texts |
TABLE
echo '#include <string>' >src/text/line.h
echo '#include "text/line.h"' >src/gauges/table.cpp
echo '#include "platform/files.h"' >src/app/form.cpp
printf '%s\n' '#include <unistd.h>' '#ifdef __linux__' '#include "platform/wine/files.h"' '#endif' \
  >src/platform/wine/cabinet/walk.cpp
touch src/platform/files.h src/platform/wine/files.h
"$includes" . || { echo 'A sound tree is refused'; exit 1; }

# shellcheck disable=SC2016 # The backquotes are Markdown.
sed -i 's/| `text` | |/| `text` | `gauges` |/' ARCHITECTURE.md
echo '#include "text/line.h"' >>src/app/form.cpp
echo '#include "platform/wine/files.h"' >src/platform/gtk/pane.cpp
echo '#include "gone.h"' >src/gauges/list.cpp
printf '%s\n' '#include <unistd.h>' '#ifdef _WIN32' '#endif' >>src/text/line.h
touch src/stray/file.h
diff - <("$includes" . && echo 'exit status 0') <<'FAULTS'
ARCHITECTURE.md: `text` may not name `gauges`, which has no row below it
app/form.cpp:2: `app` may not include text/line.h
gauges/list.cpp:1: there is no src/gone.h
platform/gtk/pane.cpp:1: `platform/gtk` may not include platform/wine/files.h
stray/file.h: its folder has no row in the table
text/line.h:2: `text` may not include <unistd.h>
text/line.h:3: conditional compilation belongs to the back ends
FAULTS
