# Puts the tag object of the tests into the registry of Wine; source it.
# shellcheck shell=bash

tag_class="$(sed -n 's/.*kTagDoubleId = "\(.*\)";/\1/p' tests/windows-links/TagDoubleId.h)"
tag_object='HKCR\CTAPIX.CTAPI'
tag_library="HKCR\\CLSID\\$tag_class"

# register_tags FOLDER: the folder of the tag object.
register_tags() {
  wine reg add "$tag_object\\CLSID" /ve /d "$tag_class" /f
  wine reg add "$tag_library\\InprocServer32" /ve /d "Z:${1//\//\\}\\zekview-tag-double.dll" /f
  wine reg add "$tag_library\\InprocServer32" /v ThreadingModel /d Apartment /f
} >/dev/null

unregister_tags() {
  wine reg delete "$tag_object" /f
  wine reg delete "$tag_library" /f
} >/dev/null 2>&1
