#include "output/powerpoint/CreatePowerpoint.h"

#include "support/AtomicFile.h"
#include "support/Error.h"

namespace powerpoint {

namespace {

std::unique_ptr<PresentationFile> NewFile(const QString &file, const output::MapOutput &map) {
    const FileProperties properties{map.title, output::FilterText(map.filter), map.made};
    return IsBinary(file) ? NewPptFile(properties) : NewPptxFile(properties);
}

std::vector<const output::SliceOutput *> Chosen(const output::MapOutput &map, bool currentOnly) {
    std::vector<const output::SliceOutput *> chosen;
    if (currentOnly) return {&map.Current()};
    for (const output::SliceOutput &slice : map.slices) chosen.push_back(&slice);
    return chosen;
}

bool AddSlides(PresentationFile &presentation, const output::MapOutput &map, const PowerpointOptions &options,
               const GoOn &goOn) {
    const std::vector<const output::SliceOutput *> slices = Chosen(map, options.currentOnly);
    for (const output::SliceOutput *slice : slices) {
        AddFlowSlide(*slice, presentation, options, slice->caption);
        if (goOn && !goOn(presentation.SlideCount(), int(slices.size()))) return false;
    }
    return true;
}

void Save(const QString &file, const QByteArray &bytes) {
    support::AtomicFile target(file);
    target.Write(bytes);
    target.Commit();
}

} // namespace

bool IsBinary(const QString &Filename) {
    return Filename.endsWith(QLatin1String(".ppt"), Qt::CaseInsensitive);
}

void CheckEnding(const QString &Filename) {
    if (!IsBinary(Filename) && !Filename.endsWith(QLatin1String(".pptx"), Qt::CaseInsensitive))
        throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("CreatePowerpoint"),
                             QStringLiteral("Unknown kind of presentation '%1'.").arg(Filename));
}

void AddFlowSlide(const output::SliceOutput &slice, PresentationFile &presentation,
                  const PowerpointOptions &options, const QString &title) {
    const QRectF room = PictureRoom(options.layout, presentation.SlideSize());
    presentation.Add({&slice, options.layout, options.layout == kLayoutTitle ? title : QString(),
                      PlacePicture(room, slice.PictureSize()), options.asShapes});
}

bool WritePowerpoint(const QString &Filename, const output::MapOutput &map, const PowerpointOptions &options,
                     const GoOn &goOn) {
    const auto presentation = NewFile(Filename, map);
    if (!AddSlides(*presentation, map, options, goOn)) return false;
    Save(Filename, presentation->File());
    return true;
}

bool CreatePowerpoint(const QString &Filename, document::MapWindow &frmForm, const PowerpointOptions &options,
                      const GoOn &goOn) {
    std::unique_ptr<PresentationFile> presentation;
    bool written = false;
    support::Report("Report", "cmdExpPP1_Click", [&] {
        const output::MapOutput map = output::ReadMap(frmForm);
        auto made = NewFile(Filename, map);
        if (AddSlides(*made, map, options, goOn)) presentation = std::move(made);
    });
    if (!presentation) return false;
    support::Report("frmPowerPoint", "CreatePowerpoint", [&] {
        Save(Filename, presentation->File());
        written = true;
    });
    return written;
}

} // namespace powerpoint
