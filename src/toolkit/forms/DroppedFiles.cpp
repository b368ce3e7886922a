#include "toolkit/forms/DroppedFiles.h"

#include "basic/ModelName.h"
#include "basic/Text.h"

#include <QFile>
#include <QMimeData>
#include <QUrl>

namespace korvel {

std::vector<std::string> droppedFiles(const QMimeData& data, const std::string& extension) {
    std::vector<std::string> files;
    for (const QUrl& url : data.urls()) {
        const std::string path = QFile::encodeName(url.toLocalFile()).toStdString();
        if (!path.empty() && upperCase(last(path, extension.size())) == upperCase(extension))
            files.push_back(modelNameOfHostPath(path));
    }
    return files;
}

} // namespace korvel
