#include "fiscal/DonneesFiscal.h"

#include "base/Durable.h"
#include "base/Reglages.h"
#include "base/Windows1252.h"
#include "reports/DonneesEtats.h"
#include "store/Base.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

namespace fiscal {

namespace {

Montant M(const SQLite::Statement& q, int i) {
    return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
}

void Inserer(SQLite::Statement& q, const etats::LigneFiscale& l) {
    q.bind(1, l.numCpt.trimmed().toStdString());
    q.bind(2, l.intitule.toStdString());
    const Montant montants[] = {l.soldeAN, l.mvtDeb, l.mvtCre, l.solde, l.soldeAnt};
    for (int i = 0; i < 5; ++i)
        q.bind(3 + i, static_cast<int64_t>(montants[i].dixMilliemes()));
    q.exec();
    q.reset();
}

// Un montant du fichier : deux décimales, signe moins, signe décimal donné, à droite.
QByteArray Champ(Montant m, QChar decimal, bool* tient) {
    const std::int64_t centimes = ArrondiLoinDeZero(m, 2).dixMilliemes() / 100;
    const std::int64_t a = centimes < 0 ? -centimes : centimes;
    const QString texte = QStringLiteral("%1%2%3%4")
                              .arg(centimes < 0 ? QStringLiteral("-") : QString())
                              .arg(a / 100)
                              .arg(decimal)
                              .arg(a % 100, 2, 10, QLatin1Char('0'));
    *tient = texte.size() <= 16;
    return EnWindows1252(texte.rightJustified(16, QLatin1Char(' '), true));
}

// Un texte à gauche sur sa largeur, coupé au-delà : un octet par caractère.
QByteArray Texte(const QString& texte, int largeur) {
    QByteArray octets = EnWindows1252(texte).left(largeur);
    return octets + QByteArray(largeur - octets.size(), ' ');
}

} // namespace

QString FiltreNomFichier(const QString& texte) {
    QString garde;
    for (const QChar c : texte) {
        const char16_t u = c.unicode();
        if ((u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z')) garde += c;
    }
    return garde.left(6).toUpper();
}

QString NomParDefaut(const QString& nomSociete, int exercice) {
    return FiltreNomFichier(nomSociete) + QString::number(exercice).right(2) +
           QStringLiteral(".txt");
}

bool ResultatsNonSoldes(const QString& cle) {
    SQLite::Statement q(Base(), "SELECT 1 FROM Compte WHERE CleCpt = ? AND (Menu = 50 OR Menu = "
                                "55) AND Solde <> 0 LIMIT 1");
    q.bind(1, cle.toStdString());
    return q.executeStep();
}

int NombreComptes(const QString& cle) {
    SQLite::Statement q(Base(), "SELECT count(*) FROM Compte WHERE CleCpt = ?");
    q.bind(1, cle.toStdString());
    q.executeStep();
    return q.getColumn(0).getInt();
}

void ViderFiscal() {
    Base().exec("DELETE FROM Fiscal");
}

void RemplirFiscal(const QString& cle, const std::function<void(int)>& avance) {
    etats::LigneFiscale regroupes[4] = {
        {QStringLiteral("401"), QStringLiteral("Fournisseurs Créditeurs"), {}, {}, {}, {}, {}},
        {QStringLiteral("409100"), QStringLiteral("Fournisseurs Débiteurs"), {}, {}, {}, {}, {}},
        {QStringLiteral("411"), QStringLiteral("Clients Débiteurs"), {}, {}, {}, {}, {}},
        {QStringLiteral("419100"), QStringLiteral("Clients Créditeurs"), {}, {}, {}, {}, {}}};
    SQLite::Statement lire(Base(), "SELECT NumCpt, LibCpt, ErCpt, Menu, Sde, CumD, CumC, Solde, "
                                   "SoldeAnte FROM Compte WHERE CleCpt = ? ORDER BY NumCpt");
    lire.bind(1, cle.toStdString());
    SQLite::Transaction t(Base());
    SQLite::Statement ecrire(Base(), "INSERT INTO Fiscal (NumCpt, Intitule, SoldeAN, MvtDeb, "
                                     "MvtCre, Solde, SoldeAnt) VALUES (?, ?, ?, ?, ?, ?, ?)");
    int lus = 0;
    while (lire.executeStep()) {
        if (avance) avance(++lus);
        const Montant sde = M(lire, 4), cumD = M(lire, 5), cumC = M(lire, 6), solde = M(lire, 7),
                      ante = M(lire, 8);
        if (sde.estNul() && cumD.estNul() && cumC.estNul() && solde.estNul() && ante.estNul())
            continue;
        const int menu = lire.getColumn(3).getInt();
        if (menu == 155 || menu == 165 || menu == 525 || menu == 625) continue;
        if (menu == 160 || menu == 170) {
            // Les tiers vont à leur regroupement, fournisseurs en débit positif.
            etats::LigneFiscale& r = regroupes[(menu == 160 ? 0 : 2) + (solde < Montant() ? 1 : 0)];
            const bool fournisseur = menu == 160;
            r.soldeAN += fournisseur ? -sde : sde;
            r.mvtDeb += cumD.abs();
            r.mvtCre += cumC.abs();
            r.solde += fournisseur ? -solde : solde;
            r.soldeAnt += fournisseur ? -ante : ante;
            continue;
        }
        const QString er = QString::fromUtf8(lire.getColumn(2).getText()).trimmed();
        etats::LigneFiscale l;
        l.numCpt = QString::fromUtf8(lire.getColumn(0).getText()).trimmed();
        l.intitule = QString::fromUtf8(lire.getColumn(1).getText()).trimmed();
        const bool passif = er.startsWith(QLatin1Char('R'));
        const bool bilan = er.endsWith(QLatin1Char('1'));
        // Débit positif, crédit négatif ; les comptes de gestion n'ont pas d'à-nouveau.
        l.soldeAN = bilan ? (passif ? -sde : sde) : Montant();
        l.solde = passif ? -solde : solde;
        l.soldeAnt = passif ? -ante : ante;
        l.mvtDeb = cumD.abs();
        l.mvtCre = cumC.abs();
        Inserer(ecrire, l);
    }
    for (const etats::LigneFiscale& r : regroupes)
        Inserer(ecrire, r);
    t.commit();
}

SommesFiscal Sommer(const std::vector<etats::LigneFiscale>& lignes) {
    SommesFiscal s;
    for (const etats::LigneFiscale& l : lignes) {
        const QChar premier = l.numCpt.isEmpty() ? QChar() : l.numCpt.at(0);
        const int g = premier == QLatin1Char('6') || premier == QLatin1Char('7') ? 1 : 0;
        s.mvtDeb[g] += l.mvtDeb;
        s.mvtCre[g] += l.mvtCre;
        if (l.solde > Montant())
            s.soldesDeb[g] += l.solde;
        else
            s.soldesCre[g] += l.solde;
    }
    return s;
}

bool LivresEnOrdre(const SommesFiscal& s, Montant resultat) {
    const auto texte = [](Montant m) { return FormatFixe(m.abs()); };
    const bool mouvements = texte(s.mvtDeb[0] + s.mvtDeb[1]) == texte(s.mvtCre[0] + s.mvtCre[1]);
    const bool soldes = texte(s.soldesDeb[0].abs() + s.soldesDeb[1].abs()) ==
                        texte(s.soldesCre[0].abs() + s.soldesCre[1].abs());
    const QString bilan = texte(s.soldesDeb[0].abs() - s.soldesCre[0].abs());
    const QString gestion = texte(s.soldesCre[1].abs() - s.soldesDeb[1].abs());
    return mouvements && soldes && bilan == gestion && gestion == texte(resultat);
}

QChar SigneDecimal() {
    const QString s =
        LireReglage(QStringLiteral("intl"), QStringLiteral("sDecimal"), QStringLiteral("0"));
    return s.isEmpty() || s.at(0) == QLatin1Char('0') ? QLatin1Char(',') : s.at(0);
}

QByteArray Enregistrement(const etats::LigneFiscale& l, QChar decimal, QString* erreur) {
    QByteArray e = Texte(l.numCpt.trimmed(), 8) + Texte(l.intitule.trimmed(), 35);
    for (const Montant m : {l.soldeAN, l.mvtDeb, l.mvtCre, l.solde, l.soldeAnt}) {
        bool tient = true;
        e += Champ(m, decimal, &tient);
        if (!tient) {
            if (erreur)
                *erreur = QStringLiteral("Le montant %1 du compte %2 est trop grand pour le "
                                         "fichier de la balance fiscale.")
                              .arg(FormatFixe(m), l.numCpt.trimmed());
            return {};
        }
    }
    return e + "\r\n";
}

QByteArray FichierLiaison(const std::vector<etats::LigneFiscale>& lignes, QChar decimal,
                          QString* erreur) {
    QByteArray fichier;
    fichier.reserve(static_cast<qsizetype>(lignes.size()) * 125);
    for (const etats::LigneFiscale& l : lignes) {
        const QByteArray e = Enregistrement(l, decimal, erreur);
        if (e.isEmpty()) return {};
        fichier += e;
    }
    return fichier;
}

} // namespace fiscal
