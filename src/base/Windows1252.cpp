#include "base/Windows1252.h"

#include <QVector>

namespace {

// Les caractères que Windows-1252 place de 0x80 à 0x9F (0 : position vide).
constexpr char16_t Haut[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                               0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

char OctetWindows1252(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (int i = 0; i < 32; ++i)
        if (Haut[i] != 0 && Haut[i] == c) return static_cast<char>(0x80 + i);
    return 0;
}

QByteArray EnWindows1252(const QString& texte) {
    QByteArray sortie;
    const QList<uint> points = texte.toUcs4();
    sortie.reserve(points.size());
    for (const uint point : points) {
        const char32_t c = point;
        if (c < 0x20 || c == 0x7F || (c >= 0x80 && c < 0xA0)) {
            sortie += ' ';
            continue;
        }
        char octet = OctetWindows1252(c);
        // Lettres barrées sans décomposition : leur lettre simple.
        switch (c) {
        case U'Ł':
            octet = 'L';
            break;
        case U'ł':
            octet = 'l';
            break;
        case U'Đ':
            octet = 'D';
            break;
        case U'đ':
            octet = 'd';
            break;
        case U'ı':
            octet = 'i';
            break;
        default:
            break;
        }
        if (octet == 0) {
            // La lettre de base d'une lettre accentuée absente de la table.
            const QString decompose =
                QString::fromUcs4(&c, 1).normalized(QString::NormalizationForm_KD);
            const char32_t base = decompose.isEmpty() ? 0 : decompose.at(0).unicode();
            octet = decompose.size() > 0 && !decompose.at(0).isSurrogate() && base >= 0x20
                        ? OctetWindows1252(base)
                        : 0;
        }
        sortie += octet != 0 ? octet : '?';
    }
    return sortie;
}
