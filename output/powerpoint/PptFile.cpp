// Presentations in the binary form of PowerPoint 97 to 2003 ([MS-PPT]): titles and pictures.
#include "output/compound/CompoundFile.h"
#include "output/powerpoint/Drawing.h"
#include "output/powerpoint/PptDrawing.h"
#include "output/powerpoint/Slide.h"

namespace powerpoint {

using namespace binary;

namespace {

constexpr compound::ClassId kPresentation{0x10, 0x8D, 0x81, 0x64, 0x9B, 0x4F, 0xCF, 0x11,
                                          0x86, 0xEA, 0x00, 0xAA, 0x00, 0xB9, 0x29, 0xE8};
constexpr qint64 kMasterId = 0x80000000;
constexpr int kFirstSlideId = 256;
// Numbers of the objects that the directory leads to.
constexpr int kDocumentObject = 1, kMasterObject = 2, kFirstSlideObject = 3;

// Background, text, shadow, title, fill and the three accents.
QByteArray Colours() {
    constexpr QRgb kColours[] = {0xFFFFFF, 0x000000, 0x808080, 0x000000,
                                 0x2F6DB5, 0xD9822B, 0x0B5CAD, 0x7B4B94};
    Values values;
    for (const QRgb colour : kColours) values.U8(qRed(colour)).U8(qGreen(colour)).U8(qBlue(colour)).U8(0);
    return values;
}

constexpr int kMasterScheme = 6, kSlideScheme = 1; // whose colours

// The look of the texts of a kind ([MS-PPT] 2.9.35): one level, aligned to the left, in the first font.
QByteArray TextStyle(int kind, int size) {
    constexpr qint64 kBulletAndAlign = 0x801, kFontSizeColour = 0x70000;
    constexpr int kLevelsAreTold = 5, kTitleColour = 3, kTextColour = 1;
    Values values;
    values.U16(1);
    if (kind >= kLevelsAreTold) values.U16(0);
    values.U32(kBulletAndAlign).U16(0).U16(0);
    values.U32(kFontSizeColour).U16(0).U16(size);
    values.U8(0).U8(0).U8(0).U8(kind == 0 || kind == 6 ? kTitleColour : kTextColour);
    return Atom(kTextMasterStyle, values, kind);
}

QByteArray Environment() {
    constexpr int kJapaneseRules = 2, kLevel = 3, kOtherText = 4, kTrueType = 4, kSwiss = 0x22;
    constexpr int kLanguages = 0x7, kEnglish = 0x409, kFaceBytes = 64;
    const QByteArray rules =
        Container(kKinsoku, Atom(kKinsokuLevel, Values().U32(0), kLevel), kJapaneseRules);
    const QByteArray face =
        QByteArray(Values().Text(QStringLiteral("Arial"))).leftJustified(kFaceBytes, '\0');
    const QByteArray font = Atom(kFont, Values().Bytes(face).U8(0).U8(0).U8(kTrueType).U8(kSwiss));
    const QByteArray language = Atom(kTextLanguage, Values().U32(kLanguages).U16(0).U16(kEnglish).U16(0));
    return Container(kEnvironment,
                     rules + Container(kFontCollection, font) + language + TextStyle(kOtherText, 18));
}

// The layout: which kind, and the places for text that it has.
QByteArray SlideHead(int layout, const QByteArray &places, qint64 master, int flags) {
    return Record(
        kSlideAtom, 2, 0,
        Values().U32(layout).Bytes(places.leftJustified(8, '\0')).U32(master).U32(0).U16(flags).U16(0));
}

QByteArray Persist(int object, qint64 id) {
    constexpr int kHasShapesOfItsOwn = 4;
    return Atom(kSlidePersist, Values().U32(object).U32(kHasShapesOfItsOwn).U32(0).U32(id).U32(0));
}

// The text as one paragraph: line breaks instead of line ends, and no other control characters.
QString OneParagraph(const QString &text) {
    constexpr char16_t kLineEnd = 0x0B;
    return LinesOf(package::XmlText(text)).join(QChar(kLineEnd));
}

class PptFile : public PresentationFile {
public:
    explicit PptFile(const FileProperties &properties) : properties_(properties) { AddMaster(); }

    QSizeF SlideSize() const override { return kStandardSlide; }
    int SlideCount() const override { return int(slides_.size()); }
    void Add(const Slide &slide) override;
    QByteArray File() override;

private:
    void AddMaster();
    QByteArray DocumentRecord() const;
    QByteArray DocumentStream(qsizetype &userEdit) const;

    FileProperties properties_;
    Pictures pictures_;
    QByteArray master_;
    std::vector<QByteArray> slides_;
    std::vector<int> shapes_; // of each drawing, the master's first
};

void PptFile::AddMaster() {
    constexpr int kTitleAndBody = 1;
    Drawing drawing(1);
    drawing.AddText(TitlePlace(SlideSize()), Place::MasterTitle, TextKind::Title,
                    QStringLiteral("Click to edit the title"));
    drawing.AddText(ContentPlace(SlideSize()), Place::MasterBody, TextKind::Body,
                    QStringLiteral("Click to edit the text"));
    shapes_.push_back(drawing.ShapeCount());
    const QByteArray places = Values().U8(int(Place::MasterTitle)).U8(int(Place::MasterBody));
    QByteArray content = SlideHead(kTitleAndBody, places, 0, 0);
    content += Atom(kColourScheme, Colours(), kMasterScheme);
    struct Style {
        int kind, size;
    };
    constexpr Style kStyles[] = {{0, 36}, {1, 28}, {2, 12}, {4, 18}, {5, 28}, {6, 36}, {7, 24}, {8, 20}};
    for (const Style &style : kStyles) content += TextStyle(style.kind, style.size);
    master_ = Container(kMaster, content + drawing.Finished() + Atom(kColourScheme, Colours(), kSlideScheme));
}

void PptFile::Add(const Slide &slide) {
    constexpr int kTitleOnly = 7, kBlank = 16, kFollowsMaster = 7;
    const bool titled = slide.layout == kLayoutTitle;
    Drawing drawing(SlideCount() + 2);
    if (titled)
        drawing.AddText(TitlePlace(SlideSize()), Place::Title, TextKind::Title, OneParagraph(slide.title));
    drawing.AddPicture(slide.place, pictures_.Add(slide.slice->Picture(diagram::PictureFormat::Emf)),
                       slide.slice->caption.simplified(), DescriptionOf(*slide.slice));
    shapes_.push_back(drawing.ShapeCount());
    const QByteArray places = titled ? QByteArray(Values().U8(int(Place::Title))) : QByteArray();
    slides_.push_back(
        Container(kSlide, SlideHead(titled ? kTitleOnly : kBlank, places, kMasterId, kFollowsMaster) +
                              drawing.Finished() + Atom(kColourScheme, Colours(), kSlideScheme)));
}

QByteArray PptFile::DocumentRecord() const {
    constexpr int kNotesWidth = 4320, kNotesHeight = 5760, kMasters = 1, kSlides = 0;
    const QSizeF size = SlideSize() * kUnitsPerPoint;
    const QByteArray head = Record(kDocumentAtom, 1, 0,
                                   Values()
                                       .U32(qRound(size.width()))
                                       .U32(qRound(size.height()))
                                       .U32(kNotesWidth)
                                       .U32(kNotesHeight)
                                       .U32(5)
                                       .U32(10) // a zoom of one half
                                       .U32(0)
                                       .U32(0)
                                       .U16(1) // the first slide's number
                                       .U16(0) // for the screen, 4:3
                                       .U8(0)
                                       .U8(0)
                                       .U8(0)
                                       .U8(1));
    QByteArray list;
    for (int i = 0; i < SlideCount(); ++i) list += Persist(kFirstSlideObject + i, kFirstSlideId + i);
    return Container(kDocument, head + Environment() + DrawingGroup(shapes_, pictures_) +
                                    Container(kSlideList, Persist(kMasterObject, kMasterId), kMasters) +
                                    (list.isEmpty() ? list : Container(kSlideList, list, kSlides)) +
                                    Atom(kEndDocument));
}

// The offsets of the objects in the stream, from object 1 on.
QByteArray Directory(const std::vector<qsizetype> &offsets) {
    constexpr std::size_t kMostInRun = 4095;
    Values values;
    for (std::size_t first = 0; first < offsets.size(); first += kMostInRun) {
        const std::size_t count = std::min(kMostInRun, offsets.size() - first);
        values.U32(qint64(count << 20 | (first + 1)));
        for (std::size_t i = first; i < first + count; ++i) values.U32(offsets[i]);
    }
    return Atom(kPersistDirectory, values);
}

QByteArray PptFile::DocumentStream(qsizetype &userEdit) const {
    constexpr int kVersion = 3, kSlideView = 1;
    QByteArray stream;
    std::vector<qsizetype> offsets;
    const auto add = [&](const QByteArray &object) {
        offsets.push_back(stream.size());
        stream += object;
    };
    add(DocumentRecord());
    add(master_);
    for (const QByteArray &slide : slides_) add(slide);
    const qsizetype directory = stream.size();
    stream += Directory(offsets);
    userEdit = stream.size();
    stream += Atom(kUserEdit, Values()
                                  .U32(slides_.empty() ? 0 : kFirstSlideId)
                                  .U16(0)
                                  .U8(0)
                                  .U8(kVersion)
                                  .U32(0)
                                  .U32(directory)
                                  .U32(kDocumentObject)
                                  .U32(qint64(offsets.size()) + 1)
                                  .U16(kSlideView)
                                  .U16(0));
    return stream;
}

QByteArray CurrentUser(qsizetype userEdit) {
    constexpr qint64 kPlain = 0xE391C05F; // not encrypted
    constexpr int kLength = 0x14, kFileVersion = 0x3F4, kOneMaster = 8;
    return Atom(kCurrentUser, Values()
                                  .U32(kLength)
                                  .U32(kPlain)
                                  .U32(userEdit)
                                  .U16(0) // the length of the user's name
                                  .U16(kFileVersion)
                                  .U8(3) // version 3.0
                                  .U8(0)
                                  .U16(0)
                                  .U32(kOneMaster));
}

QByteArray PptFile::File() {
    qsizetype userEdit = 0;
    const QByteArray document = DocumentStream(userEdit);
    std::vector<compound::Stream> streams{
        {QStringLiteral("PowerPoint Document"), document},
        {QStringLiteral("Current User"), CurrentUser(userEdit)},
        {QStringLiteral("\x05SummaryInformation"),
         SummaryInformation(properties_.title, properties_.filter, properties_.made.toMSecsSinceEpoch())}};
    if (!pictures_.Stream().isEmpty()) streams.push_back({QStringLiteral("Pictures"), pictures_.Stream()});
    return compound::CompoundFile(streams, kPresentation);
}

} // namespace

std::unique_ptr<PresentationFile> NewPptFile(const FileProperties &properties) {
    return std::make_unique<PptFile>(properties);
}

} // namespace powerpoint
