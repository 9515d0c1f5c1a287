#!/usr/bin/env python3
"""msi.py FOLDER MSI VERSION win64|win32: packs the folder as a Windows Installer package.

It installs for all users, replaces any other version except newer ones, and writes the marker that
names the data folder. Packing the same files again gives the same bytes. VERSION is A.B.C.
"""
import hashlib
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import uuid
from xml.sax.saxutils import quoteattr

PRODUCT = uuid.UUID("8f0c6c1e-6f0f-4c55-9a53-5d1a5f1f7a30")  # of all versions; never changes
MARKER = "datadir.ini"
TIME = 1767225600  # 2026-01-01; packages need a time, and a fixed one keeps the bytes the same
NEWER = ("En nyare version av ZekView finns redan i datorn. "
         "A newer version of ZekView is already on this computer.")
# Users of a plant share its settings and copies: system and administrators have all rights, users
# may change. Folders that an administrator chose keep the rights that they have.
RIGHTS = "D:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1301bf;;;BU)"
# The source of the program's events. Windows has a file whose texts are the events' own.
EVENTS = "SYSTEM\\CurrentControlSet\\Services\\EventLog\\Application\\ZekView"
EVENT_TEXTS = "%SystemRoot%\\System32\\EventCreate.exe"
PROPERTIES = ("INSTALLDIR", "DATAFOLDER", "LANGUAGE", "OLDINSTALLDIR", "OLDDATAFOLDER")


def code(name):
    return str(uuid.uuid5(PRODUCT, name)).upper()


class Package:
    def __init__(self, folder, version, word):
        self.folder, self.version, self.word = folder, version, word
        self.files = sorted(path for path in folder.rglob("*") if path.is_file())
        digest = hashlib.sha256(f"{version} {word}".encode())
        digest.update(pathlib.Path(__file__).read_bytes())
        for path in self.files:
            digest.update(f"{path.relative_to(folder)}\n".encode() + path.read_bytes())
        self.digest = digest.hexdigest()

    def key(self, path):
        """The name in the tables."""
        return "f_" + re.sub(r"[^A-Za-z0-9]", "_", str(path.relative_to(self.folder)))

    def component(self, path):
        guid = code(f"{self.word} {path.relative_to(self.folder)}")
        source = quoteattr(str(path.relative_to(self.folder.parent)))
        inner = (f'<File Id="{self.key(path)}" Name="{path.name}" Source={source} KeyPath="yes"/>')
        return f'<Component Id="c{self.key(path)}" Guid="{guid}">{inner}</Component>'

    def directory(self, folder):
        parts = [self.component(path) for path in self.files if path.parent == folder]
        for inner in sorted(path for path in folder.iterdir() if path.is_dir()):
            parts.append(f'<Directory Id="d{self.key(inner)}" Name="{inner.name}">'
                         f"{self.directory(inner)}</Directory>")
        return "\n".join(parts)

    def searches(self):
        """Where an earlier version was installed and kept its data."""
        return "\n".join(
            f'<Property Id="OLD{name}"><RegistrySearch Id="old{name}" Root="HKLM" '
            f'Key="Software\\ZekView" Name="{name}" Type="raw"/></Property>'
            for name in PROPERTIES[:2])

    def sequence(self):
        return "".join(f'<Custom Action="Keep{name}" After="AppSearch">OLD{name} AND NOT {name}'
                       "</Custom>" for name in PROPERTIES[:2])

    def source(self):
        programs = "ProgramFiles64Folder" if self.word == "win64" else "ProgramFilesFolder"
        everything = "".join(f'<ComponentRef Id="c{self.key(path)}"/>' for path in self.files)
        keep = "".join(f'<CustomAction Id="Keep{name}" Property="{name}" Value="[OLD{name}]"/>'
                       for name in PROPERTIES[:2])
        return f"""<?xml version="1.0" encoding="utf-8"?>
<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">
<Product Id="{code('product ' + self.digest)}" UpgradeCode="{code('upgrade')}" Name="ZekView"
  Version="{self.version}" Manufacturer="ZekView" Language="1033">
<Package InstallerVersion="500" Compressed="yes" InstallScope="perMachine" Description="ZekView"/>
<Media Id="1" Cabinet="zekview.cab" EmbedCab="yes"/>
<MajorUpgrade DowngradeErrorMessage={quoteattr(NEWER)}/>
<Icon Id="zekview.ico" SourceFile="zekview.ico"/>
<Property Id="ARPPRODUCTICON" Value="zekview.ico"/>
<Property Id="ARPNOMODIFY" Value="1"/>
{self.searches()}
<Directory Id="TARGETDIR" Name="SourceDir">
<Directory Id="{programs}"><Directory Id="INSTALLDIR" Name="ZekView">
{self.directory(self.folder)}
<Component Id="Places" Guid="{code(self.word + ' places')}">
<RegistryValue Root="HKLM" Key="Software\\ZekView" Name="INSTALLDIR" Type="string"
  Value="[INSTALLDIR]" KeyPath="yes"/>
</Component>
<Component Id="Events" Guid="{code(self.word + ' events')}">
<RegistryValue Root="HKLM" Key="{EVENTS}" Name="EventMessageFile" Type="string"
  Value="{EVENT_TEXTS}" KeyPath="yes"/>
<RegistryValue Root="HKLM" Key="{EVENTS}" Name="TypesSupported" Type="integer" Value="7"/>
</Component>
</Directory></Directory>
<Directory Id="CommonAppDataFolder"><Directory Id="USUALFOLDER" Name="ZekView">
<Directory Id="DATAFOLDER" Name=".">
<Component Id="Data" Guid="{code(self.word + ' data')}"><CreateFolder/>
<RegistryValue Root="HKLM" Key="Software\\ZekView" Name="DATAFOLDER" Type="string"
  Value="[DATAFOLDER]" KeyPath="yes"/>
</Component>
</Directory></Directory></Directory>
<Directory Id="ProgramMenuFolder">
<Component Id="Menu" Guid="{code(self.word + ' menu')}">
<Shortcut Id="menu" Name="ZekView" Target="[INSTALLDIR]zekview.exe" WorkingDirectory="DATAFOLDER"/>
<RegistryValue Root="HKLM" Key="Software\\ZekView" Name="Menu" Type="string" Value="1"
  KeyPath="yes"/>
</Component>
</Directory>
</Directory>
{keep}
<InstallExecuteSequence>{self.sequence()}</InstallExecuteSequence>
<InstallUISequence>{self.sequence()}</InstallUISequence>
<Feature Id="Main" Level="1">{everything}
<ComponentRef Id="Places"/><ComponentRef Id="Events"/><ComponentRef Id="Data"/>
<ComponentRef Id="Menu"/></Feature>
</Product>
</Wix>
"""

    def changes(self):
        """What wixl has no words for."""
        wide = 256 if self.word == "win64" else 0  # components of 64 bits
        upgrade = f"'{{{code('upgrade')}}}'"
        programs = [path for path in self.files if path.suffix == ".exe"]
        return [
            f"UPDATE `Component` SET `Attributes` = {wide}",
            *(f"UPDATE `Component` SET `Attributes` = {wide + 4} WHERE `Component` = '{name}'"
              for name in ("Menu", "Places", "Events")),
            # A value whose variables are replaced where it is read.
            f"UPDATE `Registry` SET `Value` = '#%{EVENT_TEXTS}' WHERE `Name` = 'EventMessageFile'",
            # The data folder stays when the program goes.
            f"UPDATE `Component` SET `Attributes` = {wide + 4 + 16} WHERE `Component` = 'Data'",
            # Without a version, the installer would keep the programs of an older version.
            *(f"UPDATE `File` SET `Version` = '{self.version}.0', `Language` = '1033' "
              f"WHERE `File` = '{self.key(path)}'" for path in programs),
            # Another package of the same version is replaced too.
            "DELETE FROM `Upgrade` WHERE `ActionProperty` = 'WIX_UPGRADE_DETECTED'",
            "INSERT INTO `Upgrade` (`UpgradeCode`, `VersionMin`, `VersionMax`, `Attributes`, "
            f"`ActionProperty`) VALUES ({upgrade}, '0.0.0', '{self.version}', 769, "
            "'WIX_UPGRADE_DETECTED')",
            # The old version goes first, so that none of its files stays.
            "UPDATE `InstallExecuteSequence` SET `Sequence` = 1510 "
            "WHERE `Action` = 'RemoveExistingProducts'",
            # wixl numbers the second of two actions after the last one.
            *(f"UPDATE `{table}` SET `Sequence` = 52 WHERE `Action` = 'KeepINSTALLDIR'"
              for table in ("InstallExecuteSequence", "InstallUISequence")),
            # The data folder of an earlier version of either word length.
            f"UPDATE `RegLocator` SET `Type` = {18 if wide else 2}",
            "INSERT INTO `RegLocator` (`Signature_`, `Root`, `Key`, `Name`, `Type`) VALUES "
            f"('other', 2, 'Software\\ZekView', 'DATAFOLDER', {2 if wide else 18})",
            "INSERT INTO `AppSearch` (`Property`, `Signature_`) VALUES ('OLDDATAFOLDER', 'other')",
            "INSERT INTO `Property` (`Property`, `Value`) VALUES ('REINSTALLMODE', 'amus')",
            "UPDATE `Property` SET `Value` = 'WIX_DOWNGRADE_DETECTED;WIX_UPGRADE_DETECTED;"
            f"{';'.join(PROPERTIES)}' WHERE `Property` = 'SecureCustomProperties'",
            "CREATE TABLE `IniFile` (`IniFile` CHAR(72) NOT NULL, `FileName` CHAR(255) NOT NULL, "
            "`DirProperty` CHAR(72), `Section` CHAR(96) NOT NULL, `Key` CHAR(128) NOT NULL, "
            "`Value` CHAR(255) NOT NULL, `Action` INT NOT NULL, `Component_` CHAR(72) NOT NULL "
            "PRIMARY KEY `IniFile`)",
            *("INSERT INTO `IniFile` (`IniFile`, `FileName`, `DirProperty`, `Section`, `Key`, "
              f"`Value`, `Action`, `Component_`) VALUES ('{key}', '{MARKER}', 'INSTALLDIR', "
              f"'ZekView', '{key}', '{value}', 0, 'cf_{MARKER.replace('.', '_')}')"
              for key, value in (("Folder", "[DATAFOLDER]"), ("Language", "[LANGUAGE]"))),
            *("INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) "
              f"VALUES ('{action}', {number})"
              for action, number in (("WriteIniValues", 5100), ("RemoveIniValues", 2200))),
            "CREATE TABLE `MsiLockPermissionsEx` (`MsiLockPermissionsEx` CHAR(72) NOT NULL, "
            "`LockObject` CHAR(72) NOT NULL, `Table` CHAR(32) NOT NULL, "
            "`SDDLText` CHAR(0) NOT NULL, `Condition` CHAR(255) "
            "PRIMARY KEY `MsiLockPermissionsEx`)",
            "INSERT INTO `MsiLockPermissionsEx` (`MsiLockPermissionsEx`, `LockObject`, `Table`, "
            f"`SDDLText`, `Condition`) VALUES ('data', 'DATAFOLDER', 'CreateFolder', '{RIGHTS}', "
            "'DATAFOLDER ~= USUALFOLDER')",
        ]


def fix_times(path):
    """Replaces the two times in the package's properties."""
    data = path.read_bytes()
    fixed = struct.pack("<IQ", 0x40, (TIME + 11644473600) * 10**7)
    now = (int(os.path.getmtime(path)) + 11644473600) * 10**7
    found = [match.start() for match in re.finditer(rb"\x40\0\0\0(?=.{8})", data, re.DOTALL)
             if abs(struct.unpack_from("<Q", data, match.start() + 4)[0] - now) < 10**7 * 600]
    if len(found) != 2:
        sys.exit(f"msi.py: {len(found)} times in {path}")
    for at in found:
        data = data[:at] + fixed + data[at + len(fixed):]
    path.write_bytes(data)


def main():
    folder, target, version, word = (*map(pathlib.Path, sys.argv[1:3]), *sys.argv[3:5])
    if not re.fullmatch(r"\d{1,3}\.\d{1,3}\.\d{1,5}", version):
        sys.exit(f"msi.py: the version {version} is not A.B.C")
    with tempfile.TemporaryDirectory() as work:
        copy = pathlib.Path(work, "ZekView")
        shutil.copytree(folder, copy)
        # UTF-16, so that the installer can write folders with any letters into it.
        (copy / MARKER).write_bytes(b"\xff\xfe" + "[ZekView]\r\n".encode("utf-16-le"))
        shutil.copy("src/desktop/windows/zekview.ico", work)
        for path in copy.rglob("*"):
            os.utime(path, (TIME, TIME))
        package = Package(copy, version, word)
        source = pathlib.Path(work, "package.wxs")
        source.write_text(package.source())
        built = pathlib.Path(work, "package.msi")
        arch = "x64" if word == "win64" else "x86"
        subprocess.run(["wixl", "-a", arch, "-o", built.name, source.name], check=True, cwd=work)
        for change in package.changes():
            subprocess.run(["msibuild", built, "-q", change], check=True)
        template = ("x64" if word == "win64" else "Intel") + ";1033"
        subprocess.run(["msibuild", built, "-s", "ZekView", "ZekView", template,
                        "{" + code("package " + package.digest) + "}"], check=True)
        fix_times(built)
        shutil.copyfile(built, target)
    return 0


sys.exit(main())
