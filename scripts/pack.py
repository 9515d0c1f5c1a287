#!/usr/bin/env python3
"""pack.py FOLDER ZIP: packs the folder, under its own name.

File names are marked as UTF-8. Packing the same files again gives the same bytes.
"""
import pathlib
import sys
import zipfile

DATE = (2026, 1, 1, 0, 0, 0)  # zip files need a date; a fixed one keeps the bytes the same


def main():
    folder, target = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    target.unlink(missing_ok=True)
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for path in sorted(folder.rglob("*")):
            if path.is_file():
                entry = zipfile.ZipInfo(str(path.relative_to(folder.parent)), DATE)
                entry.compress_type = zipfile.ZIP_DEFLATED
                archive.writestr(entry, path.read_bytes())
    return 0


sys.exit(main())
