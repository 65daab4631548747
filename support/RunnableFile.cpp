#include "support/RunnableFile.h"

#include "support/Files.h"

#include <algorithm>
#include <array>
#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <string_view>

namespace support {

namespace {

using namespace std::string_view_literals;

// In lower case, in the order of the letters.
constexpr std::array kEndings = {
    // clang-format off
    "action"sv, "ahk"sv, "apk"sv, "app"sv, "appimage"sv, "applescript"sv, "application"sv, "appref-ms"sv,
    "appx"sv, "appxbundle"sv, "bash"sv, "bat"sv, "bin"sv, "btm"sv, "chm"sv, "class"sv, "cmd"sv, "com"sv,
    "command"sv, "cpl"sv, "csh"sv, "deb"sv, "desktop"sv, "dll"sv, "dmg"sv, "exe"sv, "fish"sv,
    "flatpakref"sv, "gadget"sv, "hta"sv, "inf"sv, "ins"sv, "ipa"sv, "iso"sv, "isp"sv, "jar"sv, "jnlp"sv,
    "js"sv, "jse"sv, "ksh"sv, "library-ms"sv, "lnk"sv, "lua"sv, "mjs"sv, "msc"sv, "msi"sv, "msix"sv,
    "msp"sv, "mst"sv, "out"sv, "php"sv, "pif"sv, "pkg"sv, "pl"sv, "ps1"sv, "ps1xml"sv, "ps2"sv, "psc1"sv,
    "psm1"sv, "py"sv, "pyc"sv, "pyw"sv, "pyz"sv, "rb"sv, "reg"sv, "rpm"sv, "run"sv, "scf"sv, "scpt"sv,
    "scr"sv, "sct"sv, "search-ms"sv, "service"sv, "settingcontent-ms"sv, "sh"sv, "shb"sv, "shs"sv, "snap"sv,
    "sys"sv, "tcl"sv, "terminal"sv, "theme"sv, "tool"sv, "url"sv, "vb"sv, "vbe"sv, "vbs"sv, "vhd"sv,
    "vhdx"sv, "webloc"sv, "workflow"sv, "ws"sv, "wsc"sv, "wsf"sv, "wsh"sv, "xbap"sv, "xll"sv, "zsh"sv,
    // clang-format on
};
static_assert(std::ranges::is_sorted(kEndings));

// What programs, scripts and shortcuts begin with: the formats' own marks.
constexpr std::array kBeginnings = {
    "MZ"sv,               // Windows and DOS
    "ZM"sv,               // the same, as DOS took it too
    "\177ELF"sv,          // Linux and its like
    "#!"sv,               // a script with its interpreter
    "\xfe\xed\xfa\xce"sv, // macOS, and the other byte order and width
    "\xfe\xed\xfa\xcf"sv,
    "\xce\xfa\xed\xfe"sv,
    "\xcf\xfa\xed\xfe"sv,
    "\xca\xfe\xba\xbe"sv,                 // the same for several machines, and Java classes
    "\x4c\x00\x00\x00\x01\x14\x02\x00"sv, // a shortcut of Windows
    "[Desktop Entry]"sv,
    "[InternetShortcut]"sv,
};

constexpr qint64 kBytesLookedAt = 1024;

bool IsEnding(const QString &text) {
    const std::string ending = text.toLower().toStdString();
    return std::ranges::binary_search(kEndings, std::string_view(ending));
}

// Windows drops points and blanks at the end of a name.
QString WithoutTail(QString name) {
    while (name.endsWith(u'.') || name.endsWith(u' ')) name.chop(1);
    return name;
}

// A zip archive whose first entry is that of a Java program.
bool IsJar(const QByteArray &beginning) {
    constexpr int kFirstName = 30;
    return beginning.startsWith("PK\x03\x04") && beginning.mid(kFirstName).startsWith("META-INF/");
}

// A shortcut of a desktop may begin with comments and empty lines.
QByteArray WithoutComments(const QByteArray &text) {
    QByteArray rest = text.startsWith("\xef\xbb\xbf") ? text.mid(3) : text;
    while (rest.startsWith('#') || rest.startsWith('\n') || rest.startsWith('\r')) {
        const qsizetype end = rest.indexOf('\n');
        if (end < 0) return {};
        rest = rest.mid(end + 1);
    }
    return rest;
}

bool BeginsWithAMark(const QByteArray &bytes) {
    return std::ranges::any_of(kBeginnings, [&](std::string_view mark) {
        return bytes.startsWith(QByteArrayView(mark.data(), qsizetype(mark.size())));
    });
}

} // namespace

// On Windows what stands behind a colon names another stream of the same file: each part is looked at.
bool IsNamedLikeAProgram(const QString &path) {
    for (const QString &part : FileTitle(path).split(u':')) {
        const QString name = WithoutTail(part);
        const qsizetype point = name.lastIndexOf(u'.');
        if (point >= 0 && IsEnding(name.mid(point + 1))) return true;
    }
    return false;
}

bool BeginsLikeAProgram(const QByteArray &beginning) {
    return BeginsWithAMark(beginning) || BeginsWithAMark(WithoutComments(beginning)) || IsJar(beginning);
}

bool CanRun(const QString &path) {
    const QFileInfo file(path);
    if (IsNamedLikeAProgram(path) || IsNamedLikeAProgram(file.canonicalFilePath())) return true;
    if (!file.isFile()) return false;
    if (file.isExecutable()) return true;
    QFile content(path);
    return content.open(QIODevice::ReadOnly) && BeginsLikeAProgram(content.read(kBytesLookedAt));
}

} // namespace support
