// A file in the temporary folder that goes with the object.
#pragma once

#include <QByteArray>
#include <QString>

namespace templates {

class ScratchFile {
public:
    // There is no file of that name until somebody makes it.
    ScratchFile();
    explicit ScratchFile(const QByteArray &bytes);
    ~ScratchFile();
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    const QString &Path() const { return path_; }

private:
    QString path_;
};

} // namespace templates
