#include "fec/EcritureFec.h"

#include "store/Base.h"
#include "store/Routines.h"

#include <QHash>
#include <QStringList>
#include <SQLiteCpp/Statement.h>

namespace fec {

namespace {

const QStringList Champs = {
    "JournalCode", "JournalLib",  "EcritureNum", "EcritureDate", "CompteNum",     "CompteLib",
    "CompAuxNum",  "CompAuxLib",  "PieceRef",    "PieceDate",    "EcritureLib",   "Debit",
    "Credit",      "EcritureLet", "DateLet",     "ValidDate",    "Montantdevise", "Idevise"};

// Un texte ne porte ni tabulation ni fin de ligne : chacune devient un blanc.
QString Propre(const QString& texte) {
    QString t = texte.trimmed();
    for (QChar& c : t)
        if (c == QLatin1Char('\t') || c == QLatin1Char('\r') || c == QLatin1Char('\n'))
            c = QLatin1Char(' ');
    return t;
}

QString Somme(Montant m) {
    const std::int64_t centimes = ArrondiLoinDeZero(m.abs(), 2).dixMilliemes() / 100;
    return QStringLiteral("%1,%2").arg(centimes / 100).arg(centimes % 100, 2, 10, QLatin1Char('0'));
}

struct Compte {
    QString numero, libelle, erCpt;
    int menu = 0;
    Montant sde;
};

class Redacteur {
public:
    Redacteur(QByteArray& sortie, Totaux& totaux) : sortie(sortie), totaux(totaux) {}

    // Une ligne ; le montant va au débit ou au crédit, jamais nul.
    void Ligne(const QString& journal, const QString& date, const QString& compte,
               const QString& libCompte, const QString& aux, const QString& libAux,
               const QString& piece, const QString& datePiece, const QString& libelle,
               Montant montant, bool debit) {
        const QString somme = Somme(montant);
        const QStringList champs = {journal,
                                    LibelleJournal(journal),
                                    QString::number(numero),
                                    date,
                                    Propre(compte),
                                    Propre(libCompte),
                                    Propre(aux),
                                    Propre(libAux),
                                    Propre(piece),
                                    datePiece,
                                    Propre(libelle),
                                    debit ? somme : QStringLiteral("0,00"),
                                    debit ? QStringLiteral("0,00") : somme,
                                    QString(),
                                    QString(),
                                    date,
                                    QString(),
                                    QString()};
        sortie += "\r\n" + champs.join(QLatin1Char('\t')).toUtf8();
        ++totaux.lignes;
        (debit ? totaux.debit : totaux.credit) += ArrondiLoinDeZero(montant.abs(), 2);
    }
    void FinEcriture() {
        ++numero;
        ++totaux.ecritures;
    }

private:
    QByteArray& sortie;
    Totaux& totaux;
    int numero = 1;
};

} // namespace

QString LibelleJournal(const QString& code) {
    static const QHash<QString, QString> libelles = {
        {QStringLiteral("V"), QStringLiteral("Journal des Ventes")},
        {QStringLiteral("A"), QStringLiteral("Journal des Achats")},
        {QStringLiteral("T"), QStringLiteral("Journal de Trésorerie")},
        {QStringLiteral("D"), QStringLiteral("Journal des Opérations Diverses")},
        {QStringLiteral("I"), QStringLiteral("Journal d'Inventaire")},
        {QStringLiteral("AN"), QStringLiteral("A nouveaux")}};
    return libelles.value(code, QStringLiteral("Journal ") + code);
}

QString NomFichier(const QString& siren, const QString& dateFin) {
    return siren + QStringLiteral("FEC") + dateFin.trimmed() + QStringLiteral(".txt");
}

bool SirenValide(const QString& siren) {
    if (siren.size() != 9) return false;
    int somme = 0;
    for (int i = 0; i < 9; ++i) {
        const QChar c = siren.at(i);
        if (c < QLatin1Char('0') || c > QLatin1Char('9')) return false;
        int chiffre = c.unicode() - '0';
        // Clé de Luhn : un chiffre sur deux doublé, en partant de la droite.
        if (i % 2 == 1) {
            chiffre *= 2;
            if (chiffre > 9) chiffre -= 9;
        }
        somme += chiffre;
    }
    return somme % 10 == 0;
}

QString LireSiren(int numSoc) {
    SQLite::Statement q(Base(), "SELECT Siren FROM SirenSociete WHERE NumSoc = ?");
    q.bind(1, numSoc);
    return q.executeStep() ? QString::fromUtf8(q.getColumn(0).getText()).trimmed() : QString();
}

void EnregistrerSiren(int numSoc, const QString& siren) {
    SQLite::Statement q(Base(),
                        "INSERT OR REPLACE INTO SirenSociete (NumSoc, Siren) VALUES (?, ?)");
    q.bind(1, numSoc);
    q.bind(2, siren.toStdString());
    q.exec();
}

QByteArray FichierFec(const QString& cle, Totaux* totaux, QString* erreur) {
    Totaux t;
    table::Constante k;
    if (!LireConstante(cle, k)) {
        if (erreur) *erreur = QStringLiteral("L'exercice n'existe pas.");
        return {};
    }
    // Les comptes : libellé, rôle (les tiers sont écrits sur leur collectif) et à-nouveau.
    QHash<QString, Compte> comptes;
    QStringList ordre;
    {
        SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt, ErCpt, Menu, Sde FROM Compte WHERE "
                                    "CleCpt = ? ORDER BY NumCpt");
        q.bind(1, cle.toStdString());
        while (q.executeStep()) {
            Compte c{QString::fromUtf8(q.getColumn(0).getText()).trimmed(),
                     QString::fromUtf8(q.getColumn(1).getText()).trimmed(),
                     QString::fromUtf8(q.getColumn(2).getText()).trimmed(), q.getColumn(3).getInt(),
                     Montant::depuisDixMilliemes(q.getColumn(4).getInt64())};
            ordre << c.numero;
            comptes.insert(c.numero, c);
        }
    }
    const auto libelleDe = [&](const QString& numero, const char* defaut) {
        const auto c = comptes.constFind(numero);
        return c != comptes.cend() && !c->libelle.isEmpty() ? c->libelle
                                                            : QString::fromUtf8(defaut);
    };
    const QString libClients = libelleDe(QStringLiteral("410"), "Clients");
    const QString libFournisseurs = libelleDe(QStringLiteral("400"), "Fournisseurs");
    // Compte général et compte auxiliaire d'une ligne.
    struct Imputation {
        QString compte, libelle, aux, libAux;
    };
    const auto imputer = [&](const QString& numero) -> Imputation {
        const auto c = comptes.constFind(numero);
        if (c == comptes.cend()) return {numero, QString(), QString(), QString()};
        if (c->menu == 170) return {QStringLiteral("410"), libClients, c->numero, c->libelle};
        if (c->menu == 160) return {QStringLiteral("400"), libFournisseurs, c->numero, c->libelle};
        return {c->numero, c->libelle, QString(), QString()};
    };

    QByteArray sortie = Champs.join(QLatin1Char('\t')).toUtf8();
    Redacteur r(sortie, t);

    // Les à-nouveaux : une ligne par compte ouvert ; le collectif seulement pour ce que ses
    // tiers ne portent pas.
    const QString debut = k.DateDebut.trimmed();
    Montant tiers[2];
    for (const Compte& c : comptes)
        if (c.menu == 170 || c.menu == 160) tiers[c.menu == 170 ? 0 : 1] += c.sde;
    Montant debitAN, creditAN;
    bool ouverture = false;
    for (const QString& numero : ordre) {
        const Compte& c = comptes[numero];
        Montant sde = c.sde;
        if (c.menu == 165) sde -= tiers[0]; // 410
        if (c.menu == 155) sde -= tiers[1]; // 400
        if (sde.estNul()) continue;
        // Côté naturel : débit pour les comptes en E, crédit pour ceux en R.
        const bool debit = c.erCpt.startsWith(QLatin1Char('R')) ? sde < Montant() : sde > Montant();
        const Imputation i = c.menu == 165 || c.menu == 155
                                 ? Imputation{c.numero, c.libelle, QString(), QString()}
                                 : imputer(numero);
        r.Ligne(QStringLiteral("AN"), debut, i.compte, i.libelle, i.aux, i.libAux,
                QStringLiteral("AN"), debut, QStringLiteral("A nouveaux"), sde, debit);
        (debit ? debitAN : creditAN) += ArrondiLoinDeZero(sde.abs(), 2);
        ouverture = true;
    }
    if (debitAN != creditAN) {
        if (erreur)
            *erreur = QStringLiteral("Le bilan d'ouverture n'est pas équilibré (débits %1, crédits "
                                     "%2) : le fichier ne serait pas accepté.")
                          .arg(Somme(debitAN), Somme(creditAN));
        return {};
    }
    if (ouverture) r.FinEcriture();

    // Les écritures, dans l'ordre de leur validation ; chacune finit à sa ligne marquée.
    SQLite::Statement q(Base(),
                        "SELECT NumEcr, DateEcr, DatePiece, NumCptEcr, MntEcr, LibEcr, "
                        "DCEcr, Journal, Fin FROM Ecriture WHERE CleCpt = ? ORDER BY NumEcr");
    q.bind(1, cle.toStdString());
    bool enCours = false, ecrite = false;
    QString journal, date, piece, datePiece;
    while (q.executeStep()) {
        if (!enCours) {
            // L'en-tête de l'écriture vient de sa première ligne.
            journal = QString::fromUtf8(q.getColumn(7).getText()).trimmed();
            date = QString::fromUtf8(q.getColumn(1).getText()).trimmed();
            datePiece = QString::fromUtf8(q.getColumn(2).getText()).trimmed();
            if (datePiece.isEmpty()) datePiece = date;
            piece = QString::number(q.getColumn(0).getDouble(), 'f', 0);
            enCours = true;
            ecrite = false;
        }
        const Montant m = Montant::depuisDixMilliemes(q.getColumn(4).getInt64());
        if (!ArrondiLoinDeZero(m, 2).estNul()) {
            const Imputation i = imputer(QString::fromUtf8(q.getColumn(3).getText()).trimmed());
            r.Ligne(journal, date, i.compte, i.libelle, i.aux, i.libAux, piece, datePiece,
                    QString::fromUtf8(q.getColumn(5).getText()), m,
                    QString::fromUtf8(q.getColumn(6).getText()).trimmed() == QLatin1String("D"));
            ecrite = true;
        }
        if (q.getColumn(8).getInt() != 0) {
            if (ecrite) r.FinEcriture();
            enCours = false;
        }
    }
    if (enCours && ecrite) r.FinEcriture();
    if (totaux) *totaux = t;
    return sortie;
}

} // namespace fec
