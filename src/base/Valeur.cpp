#include "base/Valeur.h"

#include <QLocale>
#include <cmath>
#include <string>

double ValeurNumerique(const QString& texte) {
    std::string s;
    for (QChar c : texte) {
        if (c.isSpace()) continue;
        if (c.unicode() > 127) break;
        s += static_cast<char>(c.unicode());
    }
    // Plus long préfixe de la forme [+-]chiffres[.chiffres][(e|E)[+-]chiffres].
    size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t debutChiffres = i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
        ++i;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])))
            ++i;
    }
    if (i == debutChiffres || (i == debutChiffres + 1 && s[debutChiffres] == '.')) return 0;
    size_t fin = i;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
        size_t debutExposant = j;
        while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j])))
            ++j;
        if (j > debutExposant) fin = j;
    }
    // Lecture indépendante de la langue de la machine (le point est le séparateur ici).
    bool ok = false;
    const double v = QLocale::c().toDouble(QString::fromLatin1(s.substr(0, fin)), &ok);
    return ok && std::isfinite(v) ? v : 0;
}
