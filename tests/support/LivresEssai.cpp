#include "support/LivresEssai.h"

#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "posting/TableTravail.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QTest>
#include <SQLiteCpp/Statement.h>

namespace essai {

void PoserFiltre(const QList<QStringList>& lignes) {
    Executer("DELETE FROM filtre");
    SQLite::Statement q(Base(), "INSERT INTO filtre (BorneInf, BorneSup, Message, ERCPT, Bilan, "
                                "Tiers, Menu) VALUES (?,?,?,?,?,?,?)");
    for (const QStringList& l : lignes) {
        for (int i = 0; i < 7; ++i) {
            if (i == 5)
                q.bind(i + 1, l.value(i).toInt());
            else
                q.bind(i + 1, l.value(i).toStdString());
        }
        q.exec();
        q.reset();
    }
}

void FiltreEssai() {
    PoserFiltre({
        {"101", "101ZZZZZ", "Capital", "R1", "SN", "0", "10"},
        {"2", "29999999", "Immobilisations", "E1", "BIENS", "0", "20"},
        {"400", "400", "Fournisseurs collectif", "R1", "DAP", "0", "155"},
        {"401", "401ZZZZZ", "Fournisseurs", "R1", "DAP", "1", "160"},
        {"410", "410", "Clients collectif", "E1", "DAR", "0", "165"},
        {"411", "411ZZZZZ", "Clients", "E1", "DAR", "1", "170"},
        {"44566", "44566ZZZ", "TVA déductible", "E1", "DAR", "0", "235"},
        {"44571", "44571ZZZ", "TVA collectée", "R1", "DAP", "0", "230"},
        {"512", "512ZZZZZ", "Banques", "E1", "MD", "0", "330"},
        {"53", "53ZZZZZZ", "Caisse", "E1", "MD", "0", "340"},
        {"599", "599ZZZZZ", "Essai sous 600", "E1", "BIENS", "0", "50"},
        {"600", "609ZZZZZ", "Achats", "E2", "CONS", "0", "400"},
        {"61", "67ZZZZZZ", "Autres charges", "E2", "CONS", "0", "490"},
        {"699", "699ZZZZZ", "Compte pour résultat positif", "E2", "CONS", "0", "525"},
        // Plages sans chevauchement, comme les règles livrées : 799 n'est pas un produit.
        {"70", "798ZZZZZ", "Produits", "R2", "ACTI", "0", "600"},
        {"799", "799ZZZZZ", "Compte pour résultat négatif", "R2", "ACTI", "0", "625"},
    });
}

void ReprendreLivres(const QString& dossier, const QString& date) {
    session().DossierDonnees = dossier;
    SessionExercice(QStringLiteral("Essais Dupont & Fils"), date);
    session().TauxConversion = 1;
    OuvrirDossier(dossier);
}

void OuvrirLivres(const QString& dossier, const QString& date) {
    ReprendreLivres(dossier, date);
    CreerExerciceEssai(QStringLiteral("20240101"), QString());
    FiltreEssai();
    const QList<QPair<const char*, const char*>> plan = {{"101", "Capital"},
                                                         {"2154", "Matériel"},
                                                         {"400", "Fournisseurs collectif"},
                                                         {"410", "Clients collectif"},
                                                         {"401001", "Fournisseur Martin"},
                                                         {"411001", "Client Durand"},
                                                         {"44566", "TVA déductible"},
                                                         {"44571", "TVA collectée"},
                                                         {"512", "Banque"},
                                                         {"530", "Caisse"},
                                                         {"607", "Achats de marchandises"},
                                                         {"626", "Frais postaux"},
                                                         {"699", "Compte pour résultat positif"},
                                                         {"707", "Ventes de marchandises"},
                                                         {"799", "Compte pour résultat négatif"}};
    for (const auto& [numero, libelle] : plan)
        AssurerCompte(Cle, QString::fromUtf8(numero), QString::fromUtf8(libelle), {}, {});
}

void CompteSansBudget(const QString& numero, const QString& libelle) {
    AssurerCompte(Cle, numero, libelle, {}, {});
    SQLite::Statement q(Base(), "DELETE FROM Budget WHERE CleCpt=? AND NumBud=?");
    q.bind(1, Cle.toStdString());
    q.bind(2, numero.toStdString());
    q.exec();
}

void SoldeOuverture(const QString& numero, Montant sde) {
    table::Compte c;
    QVERIFY(LireCompte(Cle, numero, c));
    c.Sde = sde;
    c.Solde = c.Sde + c.CumD + c.CumC;
    MajCompte(Cle, numero, c);
    table::Constante k;
    LireConstante(Cle, k);
    const QString er = c.ErCpt.trimmed(), bilan = c.Bilan.trimmed();
    if (er == QLatin1String("E1")) {
        k.SDE1 += sde;
        k.E1 += sde;
    } else if (er == QLatin1String("R1")) {
        k.SDR1 += sde;
        k.R1 += sde;
    }
    if (bilan == QLatin1String("BIENS")) k.BIENS += sde;
    if (bilan == QLatin1String("DAR")) k.DAR += sde;
    if (bilan == QLatin1String("MD")) k.MD += sde;
    if (bilan == QLatin1String("SN")) k.SN += sde;
    if (bilan == QLatin1String("DAP")) k.DAP += sde;
    MajConstante(Cle, k);
}

void ViderSaisie() {
    Executer("DELETE FROM wSaisie");
}

QString DateStockee() {
    const QString d = session().DateSaisieCourante;
    return d.mid(6, 4) + d.mid(3, 2) + d.left(2);
}

table::Saisie LigneDuCompte(const QString& numero, const QString& dc, Montant absolu,
                            const QString& journal, const QString& date, const QString& libelle,
                            const QString& caseMenu) {
    table::Compte c;
    LireCompte(Cle, numero, c);
    table::Saisie s = LigneSurCompte(c, journal);
    s.wDateEcr = date;
    s.wDatePiece = date;
    // Un compte absent du plan garde son numéro : certains essais le veulent ainsi.
    s.wNumCpt = numero;
    s.wLibEcr = libelle;
    const bool debitNaturel = c.ErCpt.startsWith(u'E');
    s.wMntEcr = (dc == QLatin1String("D")) == debitNaturel ? absolu : -absolu;
    s.wDCEcr = dc;
    s.wMenuLigne = caseMenu;
    return s;
}

table::Saisie Ligne(const QString& numero, const QString& dc, Montant absolu,
                    const QString& journal) {
    return LigneDuCompte(numero, dc, absolu, journal, DateStockee(),
                         QStringLiteral("Essai ") + numero, QStringLiteral("V01"));
}

void Saisir(const QString& numero, const QString& dc, Montant absolu, const QString& journal) {
    table::Saisie s = Ligne(numero, dc, absolu, journal);
    AjouterSaisie(s);
}

double DernierNumero() {
    return Constante().LastNumEcrit;
}

void Passer(const QString& monnaie) {
    PasserEcriture(QString::number(DernierNumero() + 1), monnaie);
}

void Ecriture(const QString& date, const QString& journal,
              const QList<std::tuple<const char*, const char*, double>>& lignes) {
    session().DateSaisieCourante = date;
    ViderSaisie();
    for (const auto& [numero, sens, montant] : lignes)
        Saisir(QString::fromLatin1(numero), QString::fromLatin1(sens), Euros(montant), journal);
    Passer();
}

void Vente(Montant ht, Montant tva) {
    ViderSaisie();
    Saisir(QStringLiteral("411001"), QStringLiteral("D"), ht + tva);
    Saisir(QStringLiteral("707"), QStringLiteral("C"), ht);
    Saisir(QStringLiteral("44571"), QStringLiteral("C"), tva);
    Passer();
}

} // namespace essai
