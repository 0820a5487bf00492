#include "base/TextExport.h"

#include "common/Prompter.h"
#include "io/SafeWrite.h"

namespace velto {

bool SaveExportedText(const std::string& content, const QString& path, Prompter& prompter) {
    const auto produce = [&content](const PieceWriter& put) {
        put({reinterpret_cast<const uint8_t*>(content.data()), content.size()});
    };
    PosixFileSystem files;
    const int saved = SaveFile(files, path.toStdString(), produce);
    if (saved < 0) {
        prompter.Tell("Die Datei \"" + path.toStdString() +
                          "\" kann nicht geschrieben werden: " + FileErrorReason(saved) + ".",
                      Prompter::kCaption, PromptIcon::Warning);
    }
    return saved == 0;
}

} // namespace velto
