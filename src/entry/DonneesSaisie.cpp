#include "entry/DonneesSaisie.h"

#include "base/Texte.h"
#include "entry/LigneMenu.h"
#include "posting/PasserEcriture.h"
#include "posting/TableTravail.h"
#include "session/Session.h"
#include "store/Acces.h"
#include "store/Base.h"
#include "store/Routines.h"

namespace saisie {

namespace {

std::string Json(const QStringList& valeurs) {
    QStringList guillemets;
    for (QString v : valeurs)
        guillemets << QLatin1Char('"') + v.replace(QLatin1Char('"'), QLatin1String("\\\"")) +
                          QLatin1Char('"');
    return (QLatin1Char('[') + guillemets.join(QLatin1Char(',')) + QLatin1Char(']')).toStdString();
}

// Une seule requête par forme de liste : la liste des valeurs est liée en JSON.
std::vector<CompteOffert> Comptes(const char* condition, const std::string& valeurs) {
    auto& q = Requete(std::string("SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt=? AND ") +
                      condition + " ORDER BY NumCpt");
    q.bind(1, CleCourante().toStdString());
    q.bind(2, valeurs);
    std::vector<CompteOffert> comptes;
    while (q.executeStep())
        comptes.push_back({QString::fromUtf8(q.getColumn(0).getText()),
                           QString::fromUtf8(q.getColumn(1).getText()),
                           Montant::depuisDixMilliemes(q.getColumn(2).getInt64())});
    q.reset();
    return comptes;
}

bool Gauche(const QString& code) {
    return code == QLatin1String("E1") || code == QLatin1String("E2");
}

bool Droite(const QString& code) {
    return code == QLatin1String("R1") || code == QLatin1String("R2");
}

} // namespace

Entete LireEntete() {
    const QString cle = CleCourante();
    table::Constante k;
    LireConstante(cle, k);
    double numero = k.LastNumEcrit + 1;
    auto& q = Requete("SELECT MAX(NumEcr) FROM Ecriture WHERE CleCpt=?");
    q.bind(1, cle.toStdString());
    if (q.executeStep() && !q.getColumn(0).isNull()) numero = q.getColumn(0).getDouble() + 1;
    q.reset();
    return {QString::number(static_cast<qint64>(numero)), k.DateSaisie};
}

std::vector<CompteOffert> ComptesDesClasses(const QList<int>& classes) {
    QStringList v;
    for (int c : classes)
        v << QString::number(c);
    return Comptes("Menu IN (SELECT value FROM json_each(?))",
                   (QLatin1Char('[') + v.join(QLatin1Char(',')) + QLatin1Char(']')).toStdString());
}

std::vector<CompteOffert> ComptesSauf(const QStringList& numeros) {
    return Comptes("NumCpt NOT IN (SELECT value FROM json_each(?))", Json(numeros));
}

QList<int> ClassesDeLaCase(const table::Tableau& caseMenu) {
    QList<int> classes;
    for (int n = 1; n <= caseMenu.tTaille; ++n)
        classes << ClasseAutorisee(caseMenu, n);
    return classes;
}

std::vector<Ligne> LireLignes() {
    std::vector<Ligne> lignes;
    for (LigneTravail& l : LireTableTravail())
        lignes.push_back({l.rowid, std::move(l.s)});
    return lignes;
}

int NombreLignes() {
    return CompterLignes("wSaisie");
}

std::optional<table::Saisie> LigneDuCompte(const QString& numero) {
    table::Saisie s;
    if (!acces::LireLigne("wSaisie", "wNumCpt=?", s, numero.trimmed())) return std::nullopt;
    return s;
}

std::optional<Ligne> LireLigne(double wNumEcrt, const QString& numCpt) {
    // Le rowid et les champs en une seule lecture.
    auto& q = Requete("SELECT rowid," + acces::NomsDe<table::Saisie>().liste +
                      " FROM wSaisie WHERE wNumEcrt=?" + (numCpt.isNull() ? "" : " AND wNumCpt=?") +
                      " ORDER BY rowid LIMIT 1");
    q.bind(1, wNumEcrt);
    if (!numCpt.isNull()) q.bind(2, numCpt.trimmed().toStdString());
    if (!q.executeStep()) {
        q.reset();
        return std::nullopt;
    }
    Ligne l;
    l.rowid = q.getColumn(0).getInt64();
    acces::Lecteur lecteur{q, 1};
    champs::Visiter(l.s, lecteur);
    q.reset();
    return l;
}

table::Saisie LigneDuCompteChoisi(const table::Compte& compte, double wNumEcrt,
                                  const QString& journal) {
    table::Saisie r = LigneSurCompte(compte, journal);
    r.wNumEcrt = wNumEcrt;
    return r;
}

table::Saisie LignePreparee(const table::Compte& compte, const table::Tableau& caseMenu,
                            double wNumEcrt, const QString& cleCase) {
    table::Saisie r = LigneDuCompteChoisi(compte, wNumEcrt, caseMenu.tJournal);
    r.wRappel = caseMenu.tRappel;
    r.wSigne = caseMenu.tSigne;
    r.wNombre = caseMenu.tNombre;
    r.wMenuLigne = cleCase;
    return r;
}

void AjouterLigne(table::Saisie& ligne) {
    AjouterSaisie(ligne);
}

void RetirerLigneNumero(double wNumEcrt) {
    auto& q = Requete("DELETE FROM wSaisie WHERE rowid=(SELECT rowid FROM wSaisie WHERE "
                      "wNumEcrt=? ORDER BY rowid LIMIT 1)");
    q.bind(1, wNumEcrt);
    q.exec();
}

void RetirerLigneCompte(const QString& numero) {
    auto& q = Requete("DELETE FROM wSaisie WHERE rowid=(SELECT rowid FROM wSaisie WHERE "
                      "wNumCpt=? ORDER BY rowid LIMIT 1)");
    q.bind(1, numero.trimmed().toStdString());
    q.exec();
}

void Vider() {
    ViderTableTravail();
}

namespace {

// Conversion et résultat ne reviennent jamais ; les montants rappelés repartent de zéro.
void RemettreRappelsAZero() {
    Base().exec("DELETE FROM wSaisie WHERE (wNumCpt='677' OR wNumCpt='777' OR wNumCpt='107')");
    Base().exec("UPDATE wSaisie SET wMntEcr=0 WHERE wMntEcr<>0");
}

} // namespace

void GarderRappelsDesCases() {
    Base().exec("DELETE FROM wSaisie WHERE wRappel=0");
    RemettreRappelsAZero();
}

void GarderRappelsDuJournal(const QString& journal) {
    if (journal == QLatin1String("V"))
        Base().exec("DELETE FROM wSaisie WHERE wMenu=170");
    else if (journal == QLatin1String("A"))
        Base().exec("DELETE FROM wSaisie WHERE wMenu=160");
    else if (journal == QLatin1String("T"))
        Base().exec("DELETE FROM wSaisie WHERE (wMenu<>330 AND wMenu<>340)");
    RemettreRappelsAZero();
}

void EcrireMontant(std::int64_t rowid, const MontantLigne& m) {
    auto& u = Requete("UPDATE wSaisie SET wDateEcr=?, wDatePiece=?, wDateEcheance=?, "
                      "wDCEcr=COALESCE(NULLIF(?, ''), wDCEcr), wMntEcr=?, wFin=0, "
                      "wMoisEcheance=?, wLettrage=0, wSectionEcr=0, wVentilEcr=0 WHERE rowid=?");
    u.bind(1, DateVersBase(m.dateSaisie).toStdString());
    u.bind(2, DateVersBase(m.datePiece).toStdString());
    u.bind(3, DateVersBase(m.dateEcheance).toStdString());
    u.bind(4, m.sens.toStdString());
    u.bind(5, static_cast<std::int64_t>(m.montant.dixMilliemes()));
    u.bind(6, m.dateEcheance.mid(3, 2).toStdString());
    u.bind(7, rowid);
    u.exec();
}

QString SensDuMontant(const QString& erEcr, Montant montant) {
    const QString code = erEcr.trimmed();
    const bool positif = montant > Montant();
    if (Gauche(code)) return positif ? QStringLiteral("D") : QStringLiteral("C");
    if (Droite(code)) return positif ? QStringLiteral("C") : QStringLiteral("D");
    return {};
}

Montant MontantDuSens(const QString& erEcr, const QString& sens, Montant montant) {
    const QString code = erEcr.trimmed();
    if ((code.startsWith(u'E') && sens == QLatin1String("C")) ||
        (code.startsWith(u'R') && sens == QLatin1String("D")))
        return -montant;
    return montant;
}

Cotes SommerCotes() {
    Cotes c;
    auto& q = Requete("SELECT wErEcr, wMntEcr FROM wSaisie");
    while (q.executeStep()) {
        const QString code = QString::fromUtf8(q.getColumn(0).getText()).trimmed();
        const Montant m = Montant::depuisDixMilliemes(q.getColumn(1).getInt64());
        if (m != Montant()) c.tousNuls = false;
        if (Gauche(code)) c.gauche += m;
        if (Droite(code)) c.droite += m;
    }
    q.reset();
    return c;
}

void ChangerLibelle(double debut, double fin, const QString& libelle) {
    // Valeur liée : le guillemet et l'apostrophe sont rangés tels que tapés.
    auto& q = Requete("UPDATE Ecriture SET LibEcr=? WHERE NumEcr>=? AND NumEcr<=? AND CleCpt=?");
    q.bind(1, TexteRange(libelle.trimmed(), 40).toStdString());
    q.bind(2, debut);
    q.bind(3, fin);
    q.bind(4, CleCourante().toStdString());
    q.exec();
}

void Passer(const QString& numero, const QString& libelle) {
    // Valeur liée : le libellé est rangé tel qu'il est tapé, guillemets compris.
    auto& q = Requete("UPDATE wSaisie SET wLibEcr=?");
    q.bind(1, TexteRange(libelle.trimmed(), 40).toStdString());
    q.exec();
    PasserEcriture(numero, QStringLiteral("E"));
}

} // namespace saisie
