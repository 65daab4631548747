#include "document/FontPool.h"

#include "document/MapSchema.h"
#include "support/clsGUID.h"
#include "support/Error.h"

namespace document {

FontPool::FontPool(storage::Database &database) : database_(&database) {
    storage::Recordset rows = database.OpenRecordset(SelectAll(schema::kFonts));
    const Columns at(rows, schema::kFonts);
    using namespace schema::font;
    for (; !rows.EndOfFile(); rows.MoveNext())
        entries_.push_back({std::string(rows.Utf8(at[kKey])), rows.Text(at[kName]), rows.Double(at[kSize]),
                            rows.Boolean(at[kBold]), rows.Boolean(at[kItalic]), rows.Boolean(at[kUnderline]),
                            rows.Boolean(at[kStrike]), std::nullopt});
    for (std::size_t i = 0; i < entries_.size(); ++i) byKey_.emplace(entries_[i].key, i);
}

const diagram::Font &FontPool::FontOf(Entry &entry) {
    if (!entry.font)
        entry.font.emplace(entry.name, entry.size, entry.bold, entry.italic, entry.underline, entry.strike);
    return *entry.font;
}

const diagram::Font &FontPool::Load(std::string_view key) {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? default_ : FontOf(entries_[found->second]);
}

std::string FontPool::Insert(const diagram::Font &font) {
    using namespace schema::font;
    if (!insert_) insert_.emplace(database_->Prepare(InsertInto(schema::kFonts)));
    const QString key = support::GetGUID();
    insert_->BindText(kKey, key);
    insert_->BindText(kName, font.Name());
    insert_->BindDouble(kSize, font.Size());
    insert_->BindBoolean(kBold, font.Bold());
    insert_->BindBoolean(kItalic, font.Italic());
    insert_->BindBoolean(kUnderline, font.Underline());
    insert_->BindBoolean(kStrike, font.Strike());
    insert_->Run();
    return key.toStdString();
}

const std::string &FontPool::Save(const diagram::Font &font) {
    if (keys_.empty())
        for (Entry &entry : entries_) keys_.emplace(FontOf(entry), entry.key);
    const auto known = keys_.find(font);
    return known != keys_.end() ? known->second : keys_.emplace(font, Insert(font)).first->second;
}

QString LocateFont(storage::Database &database, diagram::Font &font, bool bSave, const QString &key) {
    return support::PassOn("LocateFont", [&] {
        FontPool pool(database);
        if (bSave) return QString::fromStdString(pool.Save(font));
        font = pool.Load(key.toStdString());
        return key;
    });
}

} // namespace document
