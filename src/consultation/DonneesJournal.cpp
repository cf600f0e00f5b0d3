#include "consultation/DonneesJournal.h"

#include "base/Texte.h"
#include "session/Session.h"
#include "store/Base.h"

namespace journal {

namespace {

const std::string Colonnes = "SELECT NumEcr, DateEcr, DatePiece, LibEcr, NumCptEcr, MntEcr, DCEcr, "
                             "Journal, Fin FROM Ecriture WHERE CleCpt=?";

QString Texte(SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText()).trimmed();
}

void Lire(SQLite::Statement& q, const Lecteur& lecteur) {
    while (q.executeStep()) {
        Ligne l;
        l.numero = q.getColumn(0).getDouble();
        l.dateEcr = Texte(q, 1);
        l.datePiece = Texte(q, 2);
        l.libelle = Texte(q, 3);
        l.compte = Texte(q, 4);
        l.montant = Montant::depuisDixMilliemes(q.getColumn(5).getInt64());
        l.debit = Texte(q, 6) == QLatin1String("D");
        l.journal = Texte(q, 7);
        l.fin = q.getColumn(8).getInt() != 0;
        lecteur(l);
    }
    q.reset();
}

bool Tous(const QString& code) {
    return code == QLatin1String("*");
}

} // namespace

int NombreLignes(const QString& code) {
    auto& q = Requete(Tous(code) ? "SELECT COUNT(*) FROM Ecriture WHERE CleCpt=?"
                                 : "SELECT COUNT(*) FROM Ecriture WHERE CleCpt=? AND Journal=?");
    q.bind(1, CleCourante().toStdString());
    if (!Tous(code)) q.bind(2, code.toStdString());
    const int n = q.executeStep() ? q.getColumn(0).getInt() : 0;
    q.reset();
    return n;
}

void LireLignes(const QString& code, bool decroissant, const Lecteur& lecteur) {
    // Une requête à part, non gardée en cache : le lecteur peut en lancer d'autres.
    SQLite::Statement q(Base(), Colonnes + (Tous(code) ? "" : " AND Journal=?") +
                                    " ORDER BY NumEcr" + (decroissant ? " DESC" : ""));
    q.bind(1, CleCourante().toStdString());
    if (!Tous(code)) q.bind(2, code.toStdString());
    Lire(q, lecteur);
}

void LireLignesDe(double debut, double fin, const Lecteur& lecteur) {
    SQLite::Statement q(Base(), Colonnes + " AND NumEcr>=? AND NumEcr<=? ORDER BY NumEcr");
    q.bind(1, CleCourante().toStdString());
    q.bind(2, debut);
    q.bind(3, fin);
    Lire(q, lecteur);
}

bool MarqueFin(double numero) {
    auto& q = Requete("SELECT Fin FROM Ecriture WHERE CleCpt=? AND NumEcr=?");
    q.bind(1, CleCourante().toStdString());
    q.bind(2, numero);
    const bool fin = !q.executeStep() || q.getColumn(0).getInt() != 0;
    q.reset();
    return fin;
}

QStringList Titres(const QString& titreJournal) {
    return {QStringLiteral("Numéro"),     QStringLiteral("Date Saisie"),
            QStringLiteral("Date Pièce"), QStringLiteral("Libellé"),
            QStringLiteral("Compte"),     QStringLiteral("Débit"),
            QStringLiteral("Crédit"),     titreJournal};
}

QStringList Textes(const Ligne& l, const QString& montantAffiche) {
    return {QString::number(static_cast<qint64>(l.numero)),
            DateVersEcran(l.dateEcr),
            DateVersEcran(l.datePiece),
            l.libelle,
            l.compte,
            l.debit ? montantAffiche : QString(),
            l.debit ? QString() : montantAffiche,
            l.journal};
}

} // namespace journal
