"""The man page and the completion name the options that --help names; an installed program works; the files for the
desktop are valid; version and date agree wherever they stand.

packaging_test.py SOURCE BUILD
"""
import configparser
import os
import pathlib
import re
import subprocess
import sys
import tempfile

SOURCE, BUILD = map(pathlib.Path, sys.argv[1:3])
COMMANDS = ("info csv report graph listing run batch runs "
           "table changes compliance fit sources network check publish atlas explore help-page").split()
OPTION = re.compile(r"--[a-z][a-z-]*")
FORMAT = re.compile(r"\.(?:png|svg|pdf|bmp|csv|json|txt|xlsx|sqlite)\b")
failures = []


def check(holds, what):
    if not holds:
        failures.append(what)


def run(*arguments, **environment):
    return subprocess.run(arguments, capture_output=True, text=True, timeout=60,
                          env={"PATH": os.environ["PATH"], "HOME": "/nonexistent", **environment})


def help_options(program, *command):
    result = run(program, *command, "--help")
    check(result.returncode == 0, f"{command} --help ends with {result.returncode}")
    return set(OPTION.findall(result.stdout))


def manual_sections():
    text = (SOURCE / "packaging/korvel.1").read_text().replace("\\-", "-")
    parts = re.split(r"^\.SS (\S+)$", text.split(".SH EXIT STATUS")[0], flags=re.M)
    return dict(zip(parts[1::2], parts[2::2]))


def completed(words, begun="--"):
    script = f'source {SOURCE}/packaging/korvel.bash; COMP_WORDS=({words} "{begun}"); ' \
             f'COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1)); _korvel; printf "%s\\n" "${{COMPREPLY[@]}}"'
    return set(run("bash", "-c", script).stdout.split())


def formats_in(words):
    """Of a list such as "csv, json or xlsx" and of "text, where not given, or json"."""
    return set(re.findall(r"[a-z]+", words)) - {"or", "where", "not", "given"}


def check_table_formats(program, command, manual):
    """The formats of tables are one list, wherever they are told."""
    told = re.search(r"^  --format FORMAT +([^;\n]*)", run(program, command, "--help").stdout, flags=re.M)
    words = formats_in(told[1]) if told else set()
    printed = re.search(r"fB--format.*\n([^;\n]*)", manual)
    in_manual = formats_in(printed[1]) if printed else set()
    check(words == in_manual, f"{command}: --help and man page differ in the formats {words ^ in_manual}")
    offered = completed(f"korvel {command} --format", "") if told else set()
    check(words == offered, f"{command}: --help and completion differ in the formats {words ^ offered}")


def check_documents(program):
    sections = manual_sections()
    listed = re.findall(r"^  ([a-z][a-z-]*)  ", run(program, "--help").stdout, flags=re.M)
    check(listed == COMMANDS, f"the commands of --help are {listed}")
    check(list(sections) == COMMANDS, f"the commands of the man page are {list(sections)}")
    for command in COMMANDS:
        options = help_options(program, command) - {"--help"}
        manual = set(OPTION.findall(sections.get(command, "")))
        check(options == manual, f"{command}: --help and man page differ in {options ^ manual}")
        formats = set(FORMAT.findall(run(program, command, "--help").stdout))
        in_manual = set(FORMAT.findall(sections.get(command, "")))
        check(formats == in_manual, f"{command}: --help and man page differ in the formats {formats ^ in_manual}")
        check_table_formats(program, command, sections.get(command, ""))
        completion = completed(f"korvel {command}") - {"--help"}
        check(options == completion, f"{command}: --help and completion differ in {options ^ completion}")


def check_installed(prefix):
    installed = run("cmake", "--install", BUILD, "--prefix", prefix)
    check(installed.returncode == 0, installed.stderr)
    for file in ["bin/korvel", "lib/korvel/korvel", "lib/korvel/korvelf157.exe", "lib/korvel/KORDAT4.TXT",
                 "lib/korvel/KORDAT10.TXT", "share/man/man1/korvel.1.gz", "share/bash-completion/completions/korvel",
                 "share/doc/korvel/guide.html"]:
        check((prefix / file).exists(), f"{file} is not installed")
    version = run(prefix / "bin/korvel", "--version")
    check(version.returncode == 0 and version.stdout.startswith("korvel "), f"--version prints {version}")
    page = run(prefix / "bin/korvel", "help-page", "5")
    check(page.returncode == 0 and "[DETERMINANDS]" in page.stdout, f"help-page prints {page}")
    check_desktop(prefix)


def check_desktop(prefix):
    share = prefix / "share"
    for checker in (["desktop-file-validate", share / "applications/korvel.desktop"],
                    ["desktop-file-validate", share / "applications/korvel-explorer.desktop"],
                    ["xmllint", "--noout", share / "mime/packages/korvel.xml"],
                    ["appstreamcli", "validate", "--no-net", share / "metainfo/org.korvel.korvel.metainfo.xml"]):
        result = run(*checker)
        check(result.returncode == 0, f"{checker[0]}: {result.stdout}{result.stderr}")
    icons = sorted(path.parent.parent.name for path in (share / "icons/hicolor").glob("*/apps/korvel.png"))
    check(icons == ["128x128", "16x16", "24x24", "256x256", "32x32", "48x48", "64x64"], f"icons of {icons}")
    check_ways_in(share)
    check_type_of_results(share)


def desktop_keys(file):
    """Each group's keys and values."""
    entries = configparser.ConfigParser(interpolation=None, strict=True)
    entries.optionxform = str
    entries.read(file)
    return {group: dict(entries[group]) for group in entries.sections()}


def check_ways_in(share):
    """The menu starts the main form, its actions the Explorer and the graph set-up; a file opens the Explorer, several at
    once one of them."""
    menu = desktop_keys(share / "applications/korvel.desktop")
    starts = {group: keys["Exec"] for group, keys in menu.items()}
    check(starts == {"Desktop Entry": "korvel", "Desktop Action explore": "korvel explore",
                     "Desktop Action graphs": "korvel --graphs"}, f"the menu entry starts {starts}")
    check("MimeType" not in menu["Desktop Entry"], "the menu entry opens files")
    files = desktop_keys(share / "applications/korvel-explorer.desktop")["Desktop Entry"]
    check((files["Exec"], files["NoDisplay"]) == ("korvel explore %F", "true"), f"files are opened by {files}")


def check_type_of_results(share):
    """The desktop finds results files by their name, in any case, and the program for them."""
    run("update-mime-database", share / "mime")
    run("update-desktop-database", share / "applications")
    globs = (share / "mime/globs2").read_text()
    check("application/x-korvel-results:*.sgr" in globs, f"types of names are {globs}")
    cache = (share / "applications/mimeinfo.cache").read_text()
    for type_of_file in ["results", "study"]:
        check(f"application/x-korvel-{type_of_file}=korvel-explorer.desktop;\n" in cache, f"programs of types are {cache}")


def check_version(program):
    """The build's version and day are the changelog's, the man page's and the metainfo's."""
    cmake = (SOURCE / "CMakeLists.txt").read_text()
    version = re.search(r"project\(korvel VERSION (\S+)", cmake)[1]
    day = re.search(r"set\(KORVEL_RELEASE_DAY (\S+)\)", cmake)[1]
    said = run(program, "--version").stdout.strip()
    check(said == f"korvel {version}", f"--version says {said}, the build {version}")
    newest = re.search(r"^## (\d+\.\d+\.\d+)", (SOURCE / "CHANGELOG.md").read_text(), flags=re.M)[1]
    check(newest == version, f"the changelog's newest version is {newest}, the build's {version}")
    title = (BUILD / "packaging/korvel.1").read_text().splitlines()[0]
    check(title == f'.TH KORVEL 1 "{day}" "KORVEL {version}" "User Commands"', f"the man page begins with {title}")
    metainfo = (BUILD / "packaging/org.korvel.korvel.metainfo.xml").read_text()
    check(f'<release version="{version}" date="{day}"/>' in metainfo, "the metainfo names another release")


def check_libraries(program):
    """What is loaded by the first thing that is printed, the first workbook or database has to be named by the package itself."""
    needed = run("readelf", "-d", program).stdout
    check("libQt6Widgets" in needed and not re.search("libcups|libxlsxwriter|libsqlite", needed),
          f"the program is linked to {needed}")
    package = (SOURCE / "packaging/Package.cmake").read_text()
    depends = re.search(r'CPACK_DEBIAN_PACKAGE_DEPENDS "(.*)"', package)[1].split(", ")
    header = pathlib.Path("/usr/include/xlsxwriter.h").read_text()
    workbooks = "libxlsxwriter" + re.search(r'LXW_SOVERSION "(.*)"', header)[1]
    check({"libcups2", "libsqlite3-0", workbooks} <= set(depends), f"the package depends on {depends} alone")


check_documents(BUILD / "app/korvel")
check_libraries(BUILD / "app/korvel")
check_version(BUILD / "app/korvel")
with tempfile.TemporaryDirectory() as folder:
    check_installed(pathlib.Path(folder))
for failure in failures:
    print(failure)
sys.exit(1 if failures else 0)
