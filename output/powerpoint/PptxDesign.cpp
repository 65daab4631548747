#include "output/powerpoint/PptxDesign.h"

#include "output/package/Package.h"
#include "output/powerpoint/Drawing.h"
#include "output/powerpoint/Placing.h"

namespace powerpoint {

namespace {

using package::Package;
using package::Xml;

// Colours, fonts and effects that shapes may refer to. Three of each effect are the least that is allowed.
constexpr char kTheme[] =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<a:theme xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" name="Plain"><a:themeElements>)"
    R"(<a:clrScheme name="Plain"><a:dk1><a:sysClr val="windowText" lastClr="000000"/></a:dk1>)"
    R"(<a:lt1><a:sysClr val="window" lastClr="FFFFFF"/></a:lt1><a:dk2><a:srgbClr val="2B3A4A"/></a:dk2>)"
    R"(<a:lt2><a:srgbClr val="E9EDF1"/></a:lt2><a:accent1><a:srgbClr val="2F6DB5"/></a:accent1>)"
    R"(<a:accent2><a:srgbClr val="D9822B"/></a:accent2><a:accent3><a:srgbClr val="6B7C8C"/></a:accent3>)"
    R"(<a:accent4><a:srgbClr val="D9B310"/></a:accent4><a:accent5><a:srgbClr val="3FA796"/></a:accent5>)"
    R"(<a:accent6><a:srgbClr val="6A994E"/></a:accent6><a:hlink><a:srgbClr val="0B5CAD"/></a:hlink>)"
    R"(<a:folHlink><a:srgbClr val="7B4B94"/></a:folHlink></a:clrScheme>)"
    R"(<a:fontScheme name="Plain"><a:majorFont><a:latin typeface="Calibri"/><a:ea typeface=""/>)"
    R"(<a:cs typeface=""/></a:majorFont><a:minorFont><a:latin typeface="Calibri"/><a:ea typeface=""/>)"
    R"(<a:cs typeface=""/></a:minorFont></a:fontScheme><a:fmtScheme name="Plain"><a:fillStyleLst>)"
    R"(<a:solidFill><a:schemeClr val="phClr"/></a:solidFill><a:solidFill><a:schemeClr val="phClr"/>)"
    R"(</a:solidFill><a:solidFill><a:schemeClr val="phClr"/></a:solidFill></a:fillStyleLst><a:lnStyleLst>)"
    R"(<a:ln w="6350"><a:solidFill><a:schemeClr val="phClr"/></a:solidFill></a:ln>)"
    R"(<a:ln w="12700"><a:solidFill><a:schemeClr val="phClr"/></a:solidFill></a:ln>)"
    R"(<a:ln w="19050"><a:solidFill><a:schemeClr val="phClr"/></a:solidFill></a:ln></a:lnStyleLst>)"
    R"(<a:effectStyleLst><a:effectStyle><a:effectLst/></a:effectStyle><a:effectStyle><a:effectLst/>)"
    R"(</a:effectStyle><a:effectStyle><a:effectLst/></a:effectStyle></a:effectStyleLst><a:bgFillStyleLst>)"
    R"(<a:solidFill><a:schemeClr val="phClr"/></a:solidFill><a:solidFill><a:schemeClr val="phClr"/>)"
    R"(</a:solidFill><a:solidFill><a:schemeClr val="phClr"/></a:solidFill></a:bgFillStyleLst>)"
    R"(</a:fmtScheme></a:themeElements></a:theme>)";

void WriteTreeHead(Xml &xml) {
    xml.Open("p:spTree").Open("p:nvGrpSpPr").Empty("p:cNvPr", {{"id", 1}, {"name", ""}});
    xml.Empty("p:cNvGrpSpPr").Empty("p:nvPr").Close();
    xml.Open("p:grpSpPr").Open("a:xfrm");
    xml.Empty("a:off", {{"x", 0}, {"y", 0}}).Empty("a:ext", {{"cx", 0}, {"cy", 0}});
    xml.Empty("a:chOff", {{"x", 0}, {"y", 0}}).Empty("a:chExt", {{"cx", 0}, {"cy", 0}}).Close(2);
}

struct Placeholder {
    int id;
    const char *name;
    const char *type; // null for content of any kind
    int index;        // 0 for a title
    const char *prompt;
};

void WritePlaceholder(Xml &xml, const Placeholder &holder, const QRectF *place) {
    xml.Open("p:sp").Open("p:nvSpPr").Empty("p:cNvPr", {{"id", holder.id}, {"name", holder.name}});
    xml.Open("p:cNvSpPr").Empty("a:spLocks", {{"noGrp", 1}}).Close().Open("p:nvPr");
    if (!holder.type)
        xml.Empty("p:ph", {{"idx", holder.index}});
    else if (holder.index)
        xml.Empty("p:ph", {{"type", holder.type}, {"idx", holder.index}});
    else
        xml.Empty("p:ph", {{"type", holder.type}});
    xml.Close(2).Open("p:spPr");
    if (place) {
        WriteTransform(xml, *place);
        WritePreset(xml, QStringLiteral("rect"));
    }
    xml.Close();
    if (holder.prompt) WritePlainBody(xml, QLatin1String(holder.prompt));
    xml.Close();
}

QRectF InEmu(const QRectF &points) { return {points.topLeft() * kEmuPerPoint, points.size() * kEmuPerPoint}; }

void WriteBackgroundRef(Xml &xml) {
    xml.Open("p:bg").Open("p:bgRef", {{"idx", 1001}});
    xml.Empty("a:schemeClr", {{"val", "bg1"}}).Close(2);
}

void WriteColourMap(Xml &xml) {
    xml.Empty("p:clrMap", {{"bg1", "lt1"},
                           {"tx1", "dk1"},
                           {"bg2", "lt2"},
                           {"tx2", "dk2"},
                           {"accent1", "accent1"},
                           {"accent2", "accent2"},
                           {"accent3", "accent3"},
                           {"accent4", "accent4"},
                           {"accent5", "accent5"},
                           {"accent6", "accent6"},
                           {"hlink", "hlink"},
                           {"folHlink", "folHlink"}});
}

// One level of a text style. `indent` in EMU; without a bullet it is 0.
void WriteTextLevel(Xml &xml, const char *element, int size, int indent, const char *font) {
    xml.Open(element, {{"marL", indent}, {"indent", -indent}, {"algn", "l"}});
    xml.Open("a:lnSpc").Empty("a:spcPct", {{"val", 90000}}).Close();
    if (indent)
        xml.Empty("a:buFont", {{"typeface", "Arial"}}).Empty("a:buChar", {{"char", QStringLiteral("•")}});
    else
        xml.Empty("a:buNone");
    xml.Open("a:defRPr", {{"sz", size}}).Open("a:solidFill").Empty("a:schemeClr", {{"val", "tx1"}}).Close();
    xml.Empty("a:latin", {{"typeface", font}}).Close(2);
}

void WriteTextStyles(Xml &xml) {
    constexpr int kTitleSize = 4000, kBodySize = 2800, kOtherSize = 1800, kIndent = 228600;
    xml.Open("p:txStyles").Open("p:titleStyle");
    WriteTextLevel(xml, "a:lvl1pPr", kTitleSize, 0, "+mj-lt");
    xml.Close().Open("p:bodyStyle");
    WriteTextLevel(xml, "a:lvl1pPr", kBodySize, kIndent, "+mn-lt");
    xml.Close().Open("p:otherStyle");
    WriteTextLevel(xml, "a:lvl1pPr", kOtherSize, 0, "+mn-lt");
    xml.Close(2);
}

QByteArray Master(const QSizeF &slide, const QString &titleLayout, const QString &blankLayout) {
    constexpr qint64 kFirstLayout = 2147483649;
    const QRectF title = InEmu(TitlePlace(slide)), content = InEmu(ContentPlace(slide));
    Xml xml;
    OpenPart(xml, "p:sldMaster");
    xml.Open("p:cSld");
    WriteBackgroundRef(xml);
    WriteTreeHead(xml);
    WritePlaceholder(xml, {2, "Title Placeholder 1", "title", 0, "Click to edit the title"}, &title);
    WritePlaceholder(xml, {3, "Text Placeholder 2", "body", 1, "Click to edit the text"}, &content);
    xml.Close(2);
    WriteColourMap(xml);
    xml.Open("p:sldLayoutIdLst");
    xml.Empty("p:sldLayoutId", {{"id", kFirstLayout}, {"r:id", titleLayout}});
    xml.Empty("p:sldLayoutId", {{"id", kFirstLayout + 1}, {"r:id", blankLayout}}).Close();
    WriteTextStyles(xml);
    return xml.Document();
}

QByteArray Layout(const char *type, const char *name, bool withPlaces) {
    Xml xml;
    OpenPart(xml, "p:sldLayout");
    xml.Add({"type", type}).Add({"preserve", 1});
    xml.Open("p:cSld", {{"name", name}});
    WriteTreeHead(xml);
    if (withPlaces) {
        WritePlaceholder(xml, {2, "Title 1", "title", 0, "Click to edit the title"}, nullptr);
        WritePlaceholder(xml, {3, "Content Placeholder 2", nullptr, 1, "Click to edit the text"}, nullptr);
    }
    xml.Close(2).Open("p:clrMapOvr").Empty("a:masterClrMapping").Close();
    return xml.Document();
}

QByteArray NotesMaster() {
    const QRectF image(685800, 1143000, 5486400, 3086100), notes(685800, 4400550, 5486400, 3600450);
    Xml xml;
    OpenPart(xml, "p:notesMaster");
    xml.Open("p:cSld");
    WriteBackgroundRef(xml);
    WriteTreeHead(xml);
    WritePlaceholder(xml, {2, "Slide Image Placeholder 1", "sldImg", 2, nullptr}, &image);
    WritePlaceholder(xml, {3, "Notes Placeholder 2", "body", 3, "Click to edit the notes"}, &notes);
    xml.Close(2);
    WriteColourMap(xml);
    xml.Open("p:notesStyle");
    WriteTextLevel(xml, "a:lvl1pPr", 1200, 0, "+mn-lt");
    return xml.Document();
}

void AddTheme(Package &file, const QString &name, const QString &master) {
    file.Add(name, QStringLiteral("application/vnd.openxmlformats-officedocument.theme+xml"),
             QByteArray::fromRawData(kTheme, sizeof kTheme - 1));
    file.Relate(master, QStringLiteral("theme"), name);
}

} // namespace

QString PresentationType(const char *part) {
    return QStringLiteral("application/vnd.openxmlformats-officedocument.presentationml.%1+xml")
        .arg(QLatin1String(part));
}

void AddDesign(Package &file, const DesignNames &names, const QSizeF &slide) {
    const QString layout = QStringLiteral("slideLayout");
    const QString title = file.Relate(names.master, layout, names.titleLayout);
    const QString blank = file.Relate(names.master, layout, names.blankLayout);
    file.Add(names.master, PresentationType("slideMaster"), Master(slide, title, blank));
    AddTheme(file, QStringLiteral("ppt/theme/theme1.xml"), names.master);
    file.Add(names.titleLayout, PresentationType("slideLayout"), Layout("obj", "Title and Content", true));
    file.Add(names.blankLayout, PresentationType("slideLayout"), Layout("blank", "Blank", false));
    for (const QString &name : {names.titleLayout, names.blankLayout})
        file.Relate(name, QStringLiteral("slideMaster"), names.master);
    file.Add(names.notesMaster, PresentationType("notesMaster"), NotesMaster());
    AddTheme(file, QStringLiteral("ppt/theme/theme2.xml"), names.notesMaster);
}

} // namespace powerpoint
