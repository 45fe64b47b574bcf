#include "assistant/prompts.h"

#include "assistant/frmHelp.h"
#include "assistant/rules/help_file.h"
#include "base/memory_block.h"
#include "base/text_codec.h"
#include "disk/files.h"
#include "shell/shell.h"

#include <QDir>
#include <QStringDecoder>

#include <optional>
#include <string>
#include <string_view>

namespace lumrake {

namespace {

/// UTF-8 where it is valid, else Windows-1252, with one line feed at the end of each line.
QString TextOfPrompt(const std::string& prompt) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(QByteArrayView(prompt.data(), static_cast<qsizetype>(prompt.size())));
    if (utf8.hasError()) {
        text = QString::fromStdString(DecodeRecordText(prompt));
    }
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

} // namespace

QString HelpPrompt(std::int32_t number) {
    const auto path = FindFile(QDir(ProgramDirectory()).filePath(QStringLiteral("LMKHELP.DAT")));
    MemoryBlock file;
    if (!path || ReadWholeFile(*path, file).IsNotDone()) {
        return QStringLiteral(
            "It would appear that somebody has stolen the help file.  It's called LMKHELP.DAT and was "
            "last seen in the directory where you installed LMK.");
    }
    const std::string_view bytes(reinterpret_cast<const char*>(file.data()), file.size());
    const std::optional<std::string> prompt = FindPrompt(bytes, number);
    return prompt ? TextOfPrompt(*prompt) : QStringLiteral("Sorry, I can't help you with that one!");
}

void ShowHelpPrompt(frmHelp& assistant, bool assistantOn, std::int32_t number) {
    if (assistantOn) {
        assistant.SetPrompt(number > 0 ? HelpPrompt(number) : QString());
    }
}

} // namespace lumrake
