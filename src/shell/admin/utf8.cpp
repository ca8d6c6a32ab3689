#include "shell/admin/utf8.h"

#include <QStringDecoder>

namespace ebtq::admin {

std::optional<QString> decodeUtf8(std::string_view bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

} // namespace ebtq::admin
