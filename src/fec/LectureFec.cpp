#include "fec/LectureFec.h"

#include "base/Texte.h"

#include <QDate>
#include <QHash>
#include <QRegularExpression>
#include <QStringConverter>

namespace fec {

namespace {

// Les huit caractères où ISO 8859-15 diffère de Latin-1.
QChar DepuisLatin9(unsigned char c) {
    switch (c) {
    case 0xA4:
        return QChar(0x20AC);
    case 0xA6:
        return QChar(0x0160);
    case 0xA8:
        return QChar(0x0161);
    case 0xB4:
        return QChar(0x017D);
    case 0xB8:
        return QChar(0x017E);
    case 0xBC:
        return QChar(0x0152);
    case 0xBD:
        return QChar(0x0153);
    case 0xBE:
        return QChar(0x0178);
    default:
        return QChar(c);
    }
}

bool DateLisible(const QString& texte) {
    if (texte.size() != 8) return false;
    for (const QChar c : texte)
        if (!EstChiffre(c)) return false;
    return QDate::fromString(texte, QStringLiteral("yyyyMMdd")).isValid();
}

// Un montant du fichier : virgule ou point, signe permis, sans séparateur de milliers.
bool LireMontant(const QString& texte, Montant& m) {
    QString t = texte.trimmed();
    if (t.isEmpty()) {
        m = Montant();
        return true;
    }
    static const QRegularExpression forme(QStringLiteral("^[-+]?[0-9]+([.,][0-9]{0,4})?$"));
    if (!forme.match(t).hasMatch()) return false;
    const bool negatif = t.startsWith(QLatin1Char('-'));
    if (t.startsWith(QLatin1Char('-')) || t.startsWith(QLatin1Char('+'))) t.remove(0, 1);
    const qsizetype virgule = t.indexOf(QRegularExpression(QStringLiteral("[.,]")));
    const QString entier = virgule < 0 ? t : t.left(virgule);
    QString decimales = virgule < 0 ? QString() : t.mid(virgule + 1);
    while (decimales.size() < 4)
        decimales += QLatin1Char('0');
    if (entier.size() > 15) return false;
    const std::int64_t v = entier.toLongLong() * 10000 + decimales.toLongLong();
    m = Montant::depuisDixMilliemes(negatif ? -v : v);
    return true;
}

} // namespace

QString DecoderTexte(const QByteArray& contenu) {
    QByteArray octets = contenu;
    if (octets.startsWith("\xEF\xBB\xBF")) octets.remove(0, 3);
    auto utf8 = QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString texte = utf8(octets);
    if (!utf8.hasError()) return texte;
    QString latin;
    latin.reserve(octets.size());
    for (const char c : octets)
        latin += DepuisLatin9(static_cast<unsigned char>(c));
    return latin;
}

FichierLu LireFec(const QByteArray& contenu) {
    FichierLu f;
    QStringList lignes = DecoderTexte(contenu).split(QLatin1Char('\n'));
    for (QString& l : lignes)
        if (l.endsWith(QLatin1Char('\r'))) l.chop(1);
    while (!lignes.isEmpty() && lignes.last().trimmed().isEmpty())
        lignes.removeLast();
    if (lignes.isEmpty()) {
        f.refus << QStringLiteral("Le fichier est vide.");
        return f;
    }
    const QString entete = lignes.first();
    const QChar separateur = entete.contains(QLatin1Char('\t'))  ? QLatin1Char('\t')
                             : entete.contains(QLatin1Char('|')) ? QLatin1Char('|')
                                                                 : QChar();
    if (separateur.isNull()) {
        f.refus << QStringLiteral("Ligne 1 : séparateur inconnu (le fichier doit séparer ses "
                                  "champs par une tabulation ou par « | »).");
        return f;
    }
    QHash<QString, int> rang;
    const QStringList noms = entete.split(separateur);
    for (int i = 0; i < noms.size(); ++i)
        rang.insert(noms[i].trimmed().toLower(), i);
    const bool montantSens = !rang.contains(QStringLiteral("debit")) &&
                             rang.contains(QStringLiteral("montant")) &&
                             rang.contains(QStringLiteral("sens"));
    QStringList requis = {"JournalCode", "JournalLib", "EcritureNum", "EcritureDate",
                          "CompteNum",   "CompteLib",  "CompAuxNum",  "CompAuxLib",
                          "PieceRef",    "PieceDate",  "EcritureLib"};
    requis += montantSens ? QStringList{"Montant", "Sens"} : QStringList{"Debit", "Credit"};
    for (const QString& r : requis)
        if (!rang.contains(r.toLower()))
            f.refus << QStringLiteral("Ligne 1 : il manque le champ %1.").arg(r);
    if (!f.refus.isEmpty()) return f;
    const auto champ = [&](const QStringList& valeurs, const char* nom) {
        return valeurs.value(rang.value(QString::fromLatin1(nom).toLower())).trimmed();
    };

    EcritureLue* enCours = nullptr;
    for (int n = 1; n < lignes.size(); ++n) {
        const int numero = n + 1;
        const QStringList v = lignes[n].split(separateur);
        if (lignes[n].trimmed().isEmpty()) {
            f.refus << QStringLiteral("Ligne %1 : ligne vide.").arg(numero);
            continue;
        }
        if (v.size() != noms.size()) {
            f.refus << QStringLiteral("Ligne %1 : %2 champs au lieu de %3.")
                           .arg(numero)
                           .arg(v.size())
                           .arg(noms.size());
            continue;
        }
        LigneLue l;
        l.ligne = numero;
        l.journalCode = champ(v, "JournalCode");
        l.journalLib = champ(v, "JournalLib");
        l.ecritureNum = champ(v, "EcritureNum");
        l.ecritureDate = champ(v, "EcritureDate");
        l.compteNum = champ(v, "CompteNum");
        l.compteLib = champ(v, "CompteLib");
        l.compAuxNum = champ(v, "CompAuxNum");
        l.compAuxLib = champ(v, "CompAuxLib");
        l.pieceRef = champ(v, "PieceRef");
        l.pieceDate = champ(v, "PieceDate");
        l.ecritureLib = champ(v, "EcritureLib");
        bool bonne = true;
        for (const auto& [valeur, nom] : {std::pair{l.journalCode, "JournalCode"},
                                          {l.ecritureNum, "EcritureNum"},
                                          {l.compteNum, "CompteNum"},
                                          {l.ecritureDate, "EcritureDate"}})
            if (valeur.isEmpty()) {
                f.refus << QStringLiteral("Ligne %1 : le champ %2 est vide.").arg(numero).arg(nom);
                bonne = false;
            }
        for (const auto& [valeur, nom] :
             {std::pair{l.ecritureDate, "EcritureDate"}, {l.pieceDate, "PieceDate"}})
            if (!valeur.isEmpty() && !DateLisible(valeur)) {
                f.refus << QStringLiteral("Ligne %1 : la date « %2 » du champ %3 n'est pas une "
                                          "date AAAAMMJJ.")
                               .arg(numero)
                               .arg(valeur, QString::fromLatin1(nom));
                bonne = false;
            }
        if (montantSens) {
            Montant m;
            const QString sens = champ(v, "Sens").toUpper();
            if (!LireMontant(champ(v, "Montant"), m)) {
                f.refus << QStringLiteral("Ligne %1 : le montant « %2 » du champ Montant est "
                                          "illisible.")
                               .arg(numero)
                               .arg(champ(v, "Montant"));
                bonne = false;
            } else if (sens == QLatin1String("D") || sens == QLatin1String("+1")) {
                l.debit = m;
            } else if (sens == QLatin1String("C") || sens == QLatin1String("-1")) {
                l.credit = m;
            } else {
                f.refus << QStringLiteral("Ligne %1 : le sens « %2 » n'est ni D ni C.")
                               .arg(numero)
                               .arg(champ(v, "Sens"));
                bonne = false;
            }
        } else {
            for (const char* nom : {"Debit", "Credit"}) {
                Montant m;
                if (!LireMontant(champ(v, nom), m)) {
                    f.refus << QStringLiteral("Ligne %1 : le montant « %2 » du champ %3 est "
                                              "illisible.")
                                   .arg(numero)
                                   .arg(champ(v, nom), QString::fromLatin1(nom));
                    bonne = false;
                } else {
                    (QLatin1String(nom) == QLatin1String("Debit") ? l.debit : l.credit) = m;
                }
            }
        }
        if (!bonne) continue;
        ++f.lignes;
        if (!enCours || enCours->journalCode != l.journalCode ||
            enCours->ecritureNum != l.ecritureNum) {
            f.ecritures.push_back({l.journalCode, l.ecritureNum, l.ecritureDate, {}});
            enCours = &f.ecritures.back();
        }
        enCours->lignes.push_back(l);
        if (f.premierJour.isEmpty() || l.ecritureDate < f.premierJour)
            f.premierJour = l.ecritureDate;
        if (l.ecritureDate > f.dernierJour) f.dernierJour = l.ecritureDate;
    }
    // Chaque écriture équilibrée, sur une seule date.
    for (const EcritureLue& e : f.ecritures) {
        Montant debit, credit;
        for (const LigneLue& l : e.lignes) {
            debit += l.debit;
            credit += l.credit;
            if (l.ecritureDate != e.date)
                f.refus << QStringLiteral("Ligne %1 : l'écriture %2 porte deux dates (%3 et %4).")
                               .arg(l.ligne)
                               .arg(e.ecritureNum, e.date, l.ecritureDate);
        }
        if (debit != credit)
            f.refus << QStringLiteral("Lignes %1 à %2 : l'écriture %3 du journal %4 n'est pas "
                                      "équilibrée (débits %5, crédits %6).")
                           .arg(e.lignes.front().ligne)
                           .arg(e.lignes.back().ligne)
                           .arg(e.ecritureNum, e.journalCode, FormatFixe(debit),
                                FormatFixe(credit));
    }
    // Un seul exercice : douze mois au plus depuis le premier jour.
    if (!f.premierJour.isEmpty()) {
        const QDate debut = QDate::fromString(f.premierJour, QStringLiteral("yyyyMMdd"));
        const QDate limite = debut.addMonths(12).addDays(-1);
        for (const EcritureLue& e : f.ecritures)
            if (QDate::fromString(e.date, QStringLiteral("yyyyMMdd")) > limite) {
                f.refus << QStringLiteral("Ligne %1 : la date %2 tombe hors d'un exercice de douze "
                                          "mois commencé le %3.")
                               .arg(e.lignes.front().ligne)
                               .arg(DateVersEcran(e.date), DateVersEcran(f.premierJour));
                break;
            }
    }
    return f;
}

} // namespace fec
