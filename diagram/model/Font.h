// A font as the model keeps it: six values, shared between all items that were given the same one.
#pragma once

#include <QSharedDataPointer>
#include <QString>

namespace diagram {

constexpr int kLargestFontSize = 2160; // points

// Cheap to copy (one pointer). Two fonts are equal when their six values are.
class Font {
public:
    Font(); // the default font: "Arial", 8 points, plain
    explicit Font(const QString &name, double size, bool bold = false, bool italic = false,
                  bool underline = false, bool strike = false);
    Font(const Font &);
    Font(Font &&) noexcept;
    Font &operator=(const Font &);
    Font &operator=(Font &&) noexcept;
    ~Font();

    const QString &Name() const;
    double Size() const; // points, kept to four decimal places
    bool Bold() const;
    bool Italic() const;
    bool Underline() const;
    bool Strike() const;

    void SetName(const QString &name);
    // Error 380 "Invalid property value" unless above 0 and at most kLargestFontSize.
    void SetSize(double points);
    void SetBold(bool on);
    void SetItalic(bool on);
    void SetUnderline(bool on);

    friend bool operator==(const Font &a, const Font &b);
    // Changes with the values and is the same for equal fonts in one run; a key for caches.
    std::size_t Hash() const;

private:
    struct Data;
    QSharedDataPointer<Data> d_;
};

} // namespace diagram
