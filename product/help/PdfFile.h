// The objects of a PDF file that QPdfWriter has written (PDF 1.4, one table of places at the end), to be
// changed and written again.
#pragma once

#include <QByteArray>
#include <QList>

namespace product {

class PdfFile {
public:
    // Error 5 for a file of another form.
    explicit PdfFile(const QByteArray &bytes);

    // Numbers count from 1; a number that isn't used has an empty body. A body is what stands between "obj"
    // and "endobj".
    int Count() const { return int(bodies_.size()) - 1; }
    QByteArray &Body(int number) { return bodies_[number]; }
    int Add(const QByteArray &body);
    int Root() const { return root_; }
    int Info() const { return info_; }
    // The objects of the pages, in order.
    QList<int> Pages() const;

    QByteArray Bytes() const;

private:
    QList<QByteArray> bodies_;
    int root_ = 0, info_ = 0;
};

// A text as PDF files hold it.
QByteArray PdfText(const QString &text);
// "7 0 R"
QByteArray Reference(int number);

} // namespace product
