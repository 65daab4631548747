// Presentations as Office Open XML.
#include "diagram/model/Picture.h"
#include "output/package/Package.h"
#include "output/powerpoint/PptxDesign.h"
#include "output/powerpoint/ShapeSlide.h"
#include "output/powerpoint/SlideFrame.h"
#include "support/ImageFiles.h"

#include <QCryptographicHash>

namespace powerpoint {

using package::Package;
using package::Xml;

namespace {

const QString kMain = QStringLiteral("ppt/presentation.xml");

using Media = support::ImageKind;
constexpr Media kSvg{"svg", "image/svg+xml", "<svg"};

class PptxFile : public PresentationFile {
public:
    explicit PptxFile(const FileProperties &properties) : properties_(properties) {
        file_.Relate(QString(), QStringLiteral("officeDocument"), kMain);
        master_ = file_.Relate(kMain, QStringLiteral("slideMaster"), names_.master);
        notesMaster_ = file_.Relate(kMain, QStringLiteral("notesMaster"), names_.notesMaster);
        file_.Relate(kMain, QStringLiteral("theme"), QStringLiteral("ppt/theme/theme1.xml"));
        AddDesign(file_, names_, SlideSize());
    }

    QSizeF SlideSize() const override { return kWideSlide; }
    int SlideCount() const override { return int(slideIds_.size()); }
    void Add(const Slide &slide) override;
    QByteArray File() override;

private:
    QByteArray SlidePart(const Slide &slide, const QString &name);
    void AddNotes(const Slide &slide, const QString &slideName, int number);
    void WriteTitle(Xml &xml, const QString &title) const;
    void WriteSlicePicture(Xml &xml, const Slide &slide, const QString &name, int id);
    PictureIds AddNodePicture(const QString &slideName, const diagram::Picture &picture);
    QString AddMedia(const QByteArray &bytes, const Media &media);
    QByteArray MainPart() const;
    void AddProperties();

    FileProperties properties_;
    Package file_;
    DesignNames names_;
    QString master_, notesMaster_;
    QStringList slideIds_;
    QHash<QByteArray, QString> media_; // names by the hash of the content
};

QString PptxFile::AddMedia(const QByteArray &bytes, const Media &media) {
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    QString &name = media_[hash];
    if (name.isEmpty()) {
        name = QStringLiteral("ppt/media/image%1.%2").arg(media_.size()).arg(QLatin1String(media.ending));
        file_.AddMedia(name, QLatin1String(media.mimeType), bytes);
    }
    return name;
}

void WriteTreeStart(Xml &xml) {
    xml.Open("p:cSld").Open("p:spTree").Open("p:nvGrpSpPr");
    xml.Empty("p:cNvPr", {{"id", 1}, {"name", ""}}).Empty("p:cNvGrpSpPr").Empty("p:nvPr").Close();
    xml.Empty("p:grpSpPr");
}

void WriteTreeEnd(Xml &xml) { xml.Close(2).Open("p:clrMapOvr").Empty("a:masterClrMapping").Close(); }

void PptxFile::WriteTitle(Xml &xml, const QString &title) const {
    xml.Open("p:sp").Open("p:nvSpPr").Empty("p:cNvPr", {{"id", 2}, {"name", "Title 1"}});
    xml.Open("p:cNvSpPr").Empty("a:spLocks", {{"noGrp", 1}}).Close();
    xml.Open("p:nvPr").Empty("p:ph", {{"type", "title"}}).Close(2).Empty("p:spPr");
    WritePlainBody(xml, title);
    xml.Close();
}

void PptxFile::WriteSlicePicture(Xml &xml, const Slide &slide, const QString &name, int id) {
    constexpr double kPixelsPerPoint = 2;
    diagram::ExportOptions options;
    options.pixels = int(std::max(slide.place.width(), slide.place.height()) * kPixelsPerPoint);
    const QString image = QStringLiteral("image");
    PictureIds ids;
    ids.picture = file_.Relate(
        name, image, AddMedia(slide.slice->Picture(diagram::PictureFormat::Png, options), support::kPng));
    ids.svg = file_.Relate(name, image, AddMedia(slide.slice->Picture(diagram::PictureFormat::Svg), kSvg));
    xml.Open("p:pic").Open("p:nvPicPr");
    xml.Empty(
        "p:cNvPr",
        {{"id", id}, {"name", slide.slice->caption.simplified()}, {"descr", DescriptionOf(*slide.slice)}});
    xml.Open("p:cNvPicPr").Empty("a:picLocks", {{"noChangeAspect", 1}}).Close();
    xml.Empty("p:nvPr").Close().Open("p:blipFill");
    WriteBlip(xml, ids);
    xml.Open("a:stretch").Empty("a:fillRect").Close(2).Open("p:spPr");
    WriteTransform(xml, {slide.place.topLeft() * kEmuPerPoint, slide.place.size() * kEmuPerPoint});
    WritePreset(xml, QStringLiteral("rect"));
    xml.Close(2);
}

// The picture's own bytes if they are of a form that every reader shows alike; otherwise PNG.
PictureIds PptxFile::AddNodePicture(const QString &slideName, const diagram::Picture &picture) {
    constexpr double kFiner = 3; // a drawing is made so much finer than its own size
    const bool isDrawing = picture.IsDrawing();
    const QImage image = isDrawing ? picture.ImageFor(QSizeF(picture.PixelSize()) * kFiner) : picture.Image();
    if (image.isNull()) return {};
    const Media *media = support::ImageKindOf(picture.Bytes());
    const QString relation = QStringLiteral("image");
    if (media) return {file_.Relate(slideName, relation, AddMedia(picture.Bytes(), *media)), {}};
    return {file_.Relate(slideName, relation, AddMedia(support::PngOf(image), support::kPng)), {}};
}

QByteArray PptxFile::SlidePart(const Slide &slide, const QString &name) {
    constexpr int kFirstId = 3;
    Xml xml;
    OpenPart(xml, "p:sld");
    WriteTreeStart(xml);
    if (slide.layout == kLayoutTitle) WriteTitle(xml, slide.title);
    if (slide.asShapes)
        WriteShapes(xml, slide, kFirstId,
                    [&](const diagram::Picture &picture) { return AddNodePicture(name, picture); });
    else
        WriteSlicePicture(xml, slide, name, kFirstId);
    WriteTreeEnd(xml);
    return xml.Document();
}

void PptxFile::AddNotes(const Slide &slide, const QString &slideName, int number) {
    const QString name = QStringLiteral("ppt/notesSlides/notesSlide%1.xml").arg(number);
    Xml xml;
    OpenPart(xml, "p:notes");
    WriteTreeStart(xml);
    xml.Open("p:sp").Open("p:nvSpPr").Empty("p:cNvPr", {{"id", 2}, {"name", "Slide Image 1"}});
    xml.Open("p:cNvSpPr").Empty("a:spLocks", {{"noGrp", 1}, {"noRot", 1}, {"noChangeAspect", 1}}).Close();
    xml.Open("p:nvPr").Empty("p:ph", {{"type", "sldImg"}}).Close(2).Empty("p:spPr").Close();
    xml.Open("p:sp").Open("p:nvSpPr").Empty("p:cNvPr", {{"id", 3}, {"name", "Notes 2"}});
    xml.Open("p:cNvSpPr").Empty("a:spLocks", {{"noGrp", 1}}).Close();
    xml.Open("p:nvPr").Empty("p:ph", {{"type", "body"}, {"idx", 1}}).Close(2).Empty("p:spPr");
    WritePlainBody(xml, NotesOf(*slide.slice));
    xml.Close();
    WriteTreeEnd(xml);
    file_.Add(name, PresentationType("notesSlide"), xml.Document());
    file_.Relate(name, QStringLiteral("notesMaster"), names_.notesMaster);
    file_.Relate(name, QStringLiteral("slide"), slideName);
    file_.Relate(slideName, QStringLiteral("notesSlide"), name);
}

void PptxFile::Add(const Slide &slide) {
    const int number = SlideCount() + 1;
    const QString name = QStringLiteral("ppt/slides/slide%1.xml").arg(number);
    file_.Relate(name, QStringLiteral("slideLayout"),
                 slide.layout == kLayoutTitle ? names_.titleLayout : names_.blankLayout);
    file_.Add(name, PresentationType("slide"), SlidePart(slide, name));
    AddNotes(slide, name, number);
    slideIds_ << file_.Relate(kMain, QStringLiteral("slide"), name);
}

QByteArray PptxFile::MainPart() const {
    constexpr qint64 kMasterId = 2147483648;
    constexpr int kFirstSlideId = 256;
    Xml xml;
    OpenPart(xml, "p:presentation");
    xml.Open("p:sldMasterIdLst").Empty("p:sldMasterId", {{"id", kMasterId}, {"r:id", master_}}).Close();
    xml.Open("p:notesMasterIdLst").Empty("p:notesMasterId", {{"r:id", notesMaster_}}).Close();
    if (!slideIds_.isEmpty()) {
        xml.Open("p:sldIdLst");
        for (int i = 0; i < slideIds_.size(); ++i)
            xml.Empty("p:sldId", {{"id", kFirstSlideId + i}, {"r:id", slideIds_[i]}});
        xml.Close();
    }
    const QSizeF size = SlideSize() * kEmuPerPoint;
    xml.Empty("p:sldSz", {{"cx", Emu(size.width())}, {"cy", Emu(size.height())}});
    xml.Empty("p:notesSz", {{"cx", kNotesWidth}, {"cy", kNotesHeight}});
    return xml.Document();
}

void PptxFile::AddProperties() {
    const QString core = QStringLiteral("docProps/core.xml"), app = QStringLiteral("docProps/app.xml");
    const QString made = properties_.made.toUTC().toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss'Z'"));
    Xml xml;
    xml.Open("cp:coreProperties",
             {{"xmlns:cp", "http://schemas.openxmlformats.org/package/2006/metadata/core-properties"},
              {"xmlns:dc", "http://purl.org/dc/elements/1.1/"},
              {"xmlns:dcterms", "http://purl.org/dc/terms/"},
              {"xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance"}});
    xml.Leaf("dc:title", properties_.title).Leaf("dc:description", properties_.filter);
    xml.Leaf("dcterms:created", made, {{"xsi:type", "dcterms:W3CDTF"}});
    xml.Leaf("dcterms:modified", made, {{"xsi:type", "dcterms:W3CDTF"}});
    file_.Add(core, QStringLiteral("application/vnd.openxmlformats-package.core-properties+xml"),
              xml.Document());
    file_.Relate(QString(),
                 QStringLiteral(
                     "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties"),
                 core);
    Xml more;
    more.Open("Properties",
              {{"xmlns", "http://schemas.openxmlformats.org/officeDocument/2006/extended-properties"}});
    more.Leaf("Slides", QString::number(SlideCount())).Leaf("Notes", QString::number(SlideCount()));
    file_.Add(app, QStringLiteral("application/vnd.openxmlformats-officedocument.extended-properties+xml"),
              more.Document());
    file_.Relate(QString(), QStringLiteral("extended-properties"), app);
}

QByteArray PptxFile::File() {
    file_.Add(kMain, PresentationType("presentation.main"), MainPart());
    AddProperties();
    return file_.File();
}

} // namespace

std::unique_ptr<PresentationFile> NewPptxFile(const FileProperties &properties) {
    return std::make_unique<PptxFile>(properties);
}

} // namespace powerpoint
