#include "base/Texte.h"

#include <array>
#include <cmath>

bool EstBlanc(QChar c) {
    switch (c.unicode()) {
    case u' ':
    case u'\t':
    case u'\n':
    case u'\r':
    case 0x00A0:
    case 0x202F:
        return true;
    default:
        return false;
    }
}

bool EstChiffre(QChar c) {
    return c >= u'0' && c <= u'9';
}

namespace {

// Nombre écrit en chiffres ASCII à la position donnée (déjà contrôlés).
int Nombre(const QString& texte, qsizetype debut, qsizetype longueur) {
    int n = 0;
    for (qsizetype i = debut; i < debut + longueur; ++i)
        n = n * 10 + (texte[i].unicode() - u'0');
    return n;
}

} // namespace

bool DateValide(const QString& texte) {
    if (texte.size() != 10 || texte[2] != u'/' || texte[5] != u'/') return false;
    for (const qsizetype i : {0, 1, 3, 4, 6, 7, 8, 9})
        if (!EstChiffre(texte[i])) return false;
    const int jour = Nombre(texte, 0, 2);
    const int mois = Nombre(texte, 3, 2);
    const int annee = Nombre(texte, 6, 4);
    if (annee < 1900 || annee > 2200 || mois < 1 || mois > 12 || jour < 1) return false;
    static constexpr std::array<int, 12> JoursDuMois = {31, 28, 31, 30, 31, 30,
                                                        31, 31, 30, 31, 30, 31};
    // La règle des siècles n'est pas appliquée : toute année divisible par 4 est bissextile.
    const int dernierJour = (mois == 2 && annee % 4 == 0) ? 29 : JoursDuMois[mois - 1];
    return jour <= dernierJour;
}

QString DateVersEcran(const QString& aaaammjj) {
    if (aaaammjj.size() < 8) return {};
    // Une seule allocation : le journal en forme des centaines de milliers.
    const QStringView d(aaaammjj);
    QString ecran;
    ecran.reserve(10);
    ecran += d.mid(6, 2);
    ecran += u'/';
    ecran += d.mid(4, 2);
    ecran += u'/';
    ecran += d.left(4);
    return ecran;
}

QString DateVersBase(const QString& jjmmaaaa) {
    if (jjmmaaaa.size() < 10) return {};
    return jjmmaaaa.mid(6, 4) + jjmmaaaa.mid(3, 2) + jjmmaaaa.left(2);
}

QString DoublerGuillemets(QString& texte) {
    texte.replace(u'"', QStringLiteral("\"\""));
    return texte;
}

QString SansEspaces(const QString& texte) {
    QString resultat;
    resultat.reserve(texte.size());
    for (const QChar c : texte)
        if (!EstBlanc(c)) resultat += c;
    return resultat;
}

namespace {

QString RemplacerPremier(const QString& texte, QChar avant, QChar apres) {
    QString resultat = texte.trimmed();
    const qsizetype i = resultat.indexOf(avant);
    if (i >= 0) resultat[i] = apres;
    return resultat;
}

} // namespace

QString PointVersVirgule(const QString& texte) {
    return RemplacerPremier(texte, u'.', u',');
}

QString VirguleVersPoint(const QString& texte) {
    return RemplacerPremier(texte, u',', u'.');
}

QString TexteErreur(const QString& texte, int numeroErreur, const QString& libelleErreur) {
    const QString tirets(68, u'-');
    return texte + u'\n' + tirets + u'\n' + QStringLiteral("Erreur numéro  : ") +
           QString::number(numeroErreur) + u'\n' + QStringLiteral("Libellé erreur :") +
           libelleErreur + u'\n' + tirets;
}

QString FormatPourcent(double fraction) {
    return QString::number(fraction * 100, 'f', 2).replace(QLatin1Char('.'), QLatin1Char(',')) +
           QLatin1Char('%');
}

bool LirePourcentage(const QString& texte, double& valeur) {
    QString t = VirguleVersPoint(texte.trimmed());
    if (t.endsWith(QLatin1Char('%'))) t.chop(1);
    t = t.trimmed();
    if (t.isEmpty()) {
        valeur = 0;
        return true;
    }
    bool ok = false;
    valeur = t.toDouble(&ok);
    return ok && std::isfinite(valeur);
}
