// The table Fonts of an open map: fonts by key for loading, keys by font for saving. Fonts are shared by
// value.
#pragma once

#include "diagram/model/Font.h"
#include "storage/Database.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace document {

class FontPool {
public:
    // Reads the table once. The database must outlive the pool.
    explicit FontPool(storage::Database &database);

    // The font under the key, the same shared one each time; the default font for an unknown key. Error 380
    // "Invalid property value" for a size of 0, below it, or above 2160.
    const diagram::Font &Load(std::string_view key);
    // The key of the row with the font's six values, in UTF-8; adds one under a new key where there is none.
    const std::string &Save(const diagram::Font &font);

private:
    struct Entry {
        std::string key;
        QString name;
        double size = 0;
        bool bold = false, italic = false, underline = false, strike = false;
        std::optional<diagram::Font> font; // made at the first use
    };
    struct FontHash {
        std::size_t operator()(const diagram::Font &font) const { return font.Hash(); }
    };

    const diagram::Font &FontOf(Entry &entry);
    std::string Insert(const diagram::Font &font);

    storage::Database *database_;
    std::vector<Entry> entries_;
    std::unordered_map<std::string_view, std::size_t> byKey_; // keys stand in entries_
    std::unordered_map<diagram::Font, std::string, FontHash> keys_;
    std::optional<storage::PreparedStatement> insert_;
    diagram::Font default_;
};

// In save mode the key of the row for `font`, made where there is none. In load mode `key` as it was passed,
// with a new font in `font`: the default one for an unknown key. Errors have LocateFont in their source.
QString LocateFont(storage::Database &database, diagram::Font &font, bool bSave,
                   const QString &key = QString());

} // namespace document
