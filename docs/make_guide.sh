#!/bin/sh
# Makes the user guide: HTML pages in FOLDER/html, and FOLDER/chm/Verdanth.chm with the same.
#
#   docs/make_guide.sh VERSION FOLDER
set -eu
VERDANTH_VERSION=$1
export VERDANTH_VERSION PYTHONHASHSEED=0 PYTHONDONTWRITEBYTECODE=1 LC_ALL=C.UTF-8
docs=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$2"
cd "$2"
rm -rf sources read html chm

# A function's help text is the source of its page.
mkdir sources
cp "$docs"/pages/*.md "$docs"/images/*.png "$docs"/../CHANGELOG.md "$docs"/../toolbox/capeOpen*.m sources
for class in "$docs"/../toolbox/+capeopen/*.m; do cp "$class" "sources/capeopen.$(basename "$class")"; done

# What was read is kept for the second time. A warning, such as one of a link that leads nowhere, is an error.
sphinx() { sphinx-build -q -W --keep-going -c "$docs" -d read "$@"; }
sphinx -b html sources html
sphinx -b htmlhelp -t chm sources chm
"$docs"/compile_chm.sh chm

# What Sphinx and its theme put into the pages may be handed on with these texts.
for package in sphinx-common furo sphinx-basic-ng; do
    cat "/usr/share/doc/$package/copyright"
    echo
done >html/_static/licenses.txt
