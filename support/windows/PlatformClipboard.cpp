#include "support/PlatformClipboard.h"

#include <cstring>
#include <QtEndian>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

namespace support::platform {

namespace {

// Held open until destroyed.
class OpenedClipboard {
public:
    OpenedClipboard() : open_(OpenClipboard(nullptr) && EmptyClipboard()) {}
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard &) = delete;
    OpenedClipboard &operator=(const OpenedClipboard &) = delete;
    explicit operator bool() const { return open_; }

private:
    bool open_;
};

// Memory as the clipboard wants it; the caller frees what the clipboard doesn't take.
HGLOBAL Global(const void *bytes, std::size_t size) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (!memory) return nullptr;
    if (void *place = GlobalLock(memory)) {
        std::memcpy(place, bytes, size);
        GlobalUnlock(memory);
    }
    return memory;
}

bool PutBytes(UINT format, const void *bytes, std::size_t size) {
    const HGLOBAL memory = Global(bytes, size);
    if (!memory) return false;
    if (SetClipboardData(format, memory)) return true;
    GlobalFree(memory);
    return false;
}

bool PutEmf(const QByteArray &file) {
    const HENHMETAFILE metafile =
        SetEnhMetaFileBits(UINT(file.size()), reinterpret_cast<const BYTE *>(file.constData()));
    if (!metafile) return false;
    if (SetClipboardData(CF_ENHMETAFILE, metafile)) return true;
    DeleteEnhMetaFile(metafile);
    return false;
}

// The clipboard takes the file without its placeable header, and the size in hundredths of a millimetre.
bool PutWmf(const QByteArray &file) {
    constexpr int kPlaceableBytes = 22;
    constexpr int kLeftAt = 6, kTopAt = 8, kRightAt = 10, kBottomAt = 12, kUnitsPerInchAt = 14;
    constexpr double kHundredthsPerInch = 2540;
    if (file.size() <= kPlaceableBytes) return false;
    const auto field = [&](int at) { return qFromLittleEndian<qint16>(file.constData() + at); };
    const double unitsPerInch = qFromLittleEndian<quint16>(file.constData() + kUnitsPerInchAt);
    if (unitsPerInch == 0) return false;
    METAFILEPICT picture{};
    picture.mm = MM_ANISOTROPIC;
    picture.xExt = LONG((field(kRightAt) - field(kLeftAt)) * kHundredthsPerInch / unitsPerInch);
    picture.yExt = LONG((field(kBottomAt) - field(kTopAt)) * kHundredthsPerInch / unitsPerInch);
    picture.hMF = SetMetaFileBitsEx(UINT(file.size() - kPlaceableBytes),
                                    reinterpret_cast<const BYTE *>(file.constData() + kPlaceableBytes));
    if (!picture.hMF) return false;
    if (PutBytes(CF_METAFILEPICT, &picture, sizeof picture)) return true;
    DeleteMetaFile(picture.hMF);
    return false;
}

} // namespace

bool PutPictureOnClipboard(const PictureFile &emf, const PictureFile &wmf, const PictureFile &png) {
    const QByteArray emfFile = emf(), wmfFile = wmf(), pngFile = png(); // before the clipboard is held
    const OpenedClipboard clipboard;
    if (!clipboard) return false;
    const bool enhanced = PutEmf(emfFile), plain = PutWmf(wmfFile);
    const bool image =
        PutBytes(RegisterClipboardFormatW(L"PNG"), pngFile.constData(), std::size_t(pngFile.size()));
    return enhanced || plain || image;
}

} // namespace support::platform
