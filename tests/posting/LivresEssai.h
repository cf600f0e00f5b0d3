#pragma once
// Un exercice d'essai (société 1, exercice 2024) avec ses propres règles de numérotation,
// des lignes posées dans wSaisie comme les écrans de saisie le font, un recalcul des cumuls
// fait ici depuis les lignes d'Ecriture, sans rien emprunter au moteur, et un vidage
// complet des tables pour comparer deux états de la base.

#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QStringList>
#include <QTest>
#include <array>
#include <map>

namespace essai {

inline const QString Cle = QStringLiteral("012024");

// Les boîtes de la reprise, au mot près.
inline const QString MessageMarqueur1 = QStringLiteral(
    "Votre dernière session Maroval s'est terminee anormalement pendant l'enregistrement de "
    "votre derniere ecriture.\n\nCette derniere ecriture n'a pas ete memorisee, veuillez la "
    "re-saisir.\n\nLe reste de votre comptabilité n'a pas été affecté par cet arrêt brutal.");
inline const QString RecuperationReussie = QStringLiteral(
    "La récupération s'est effectuée correctement.\nVous pouvez maintenant continuer à "
    "travailler.");
inline const QString RecuperationImpossible = QStringLiteral(
    "Maroval ne peut récupérer votre comptabilité automatiquement.\nUtilisez le bouton "
    "Restauration.");

inline Montant Euros(double v) {
    return Montant::depuisDouble(v);
}

inline void Executer(const std::string& sql) {
    Base().exec(sql);
}

// Remplace le contenu de filtre : chaque ligne est BorneInf, BorneSup, Message, ERCPT,
// Bilan, Tiers, Menu.
inline void PoserFiltre(const QList<QStringList>& lignes) {
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

inline void FiltreEssai() {
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
        {"70", "79ZZZZZZ", "Produits", "R2", "ACTI", "0", "600"},
        {"799", "799ZZZZZ", "Compte pour résultat négatif", "R2", "ACTI", "0", "625"},
    });
}

// Session sur l'exercice d'essai et base ouverte (un autre processus l'a préparée).
inline void ReprendreExercice(const QString& dossier,
                              const QString& date = QStringLiteral("15/03/2024")) {
    Session& s = session();
    s.DossierDonnees = dossier;
    s.NumSocCourante = 1;
    s.ExerciceCourant = 2024;
    s.NomSocCourante = QStringLiteral("Essais Dupont & Fils");
    s.DateSaisieCourante = date;
    s.MonnaieExercice = QStringLiteral("E");
    s.TauxConversion = 1;
    MajFormatMontant(2);
    const QString ini = QDir(dossier).filePath(QStringLiteral("maroval.ini"));
    if (!QFile::exists(ini)) {
        QFile::copy(QStringLiteral(":/data/maroval.ini"), ini);
        QFile::setPermissions(ini, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    OuvrirBase(dossier);
}

// Session sur l'exercice d'essai, base ouverte, société, constante et plan de comptes.
inline void OuvrirExercice(const QString& dossier,
                           const QString& date = QStringLiteral("15/03/2024")) {
    ReprendreExercice(dossier, date);
    const Session& s = session();
    table::Societe soc;
    soc.Nom = s.NomSocCourante;
    AjouterSociete(soc);
    table::Constante k;
    k.CleCon = Cle;
    k.DateDebut = QStringLiteral("20240101");
    k.DateFin = QStringLiteral("20241231");
    k.SymboleMon = QStringLiteral("E");
    AjouterConstante(k);
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

// Compte sans ligne de budget, comme l'aurait laissé une ancienne version du plan.
inline void CompteSansBudget(const QString& numero, const QString& libelle) {
    AssurerCompte(Cle, numero, libelle, {}, {});
    SQLite::Statement q(Base(), "DELETE FROM Budget WHERE CleCpt=? AND NumBud=?");
    q.bind(1, Cle.toStdString());
    q.bind(2, numero.toStdString());
    q.exec();
}

// Montant d'ouverture posé comme le bilan d'ouverture le fait : Sde et Solde du compte,
// et la part d'ouverture des totaux de l'exercice.
inline void SoldeOuverture(const QString& numero, Montant sde) {
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

inline void ViderSaisie() {
    Executer("DELETE FROM wSaisie");
}

// Date de la session en AAAAMMJJ.
inline QString DateStockee() {
    const QString d = session().DateSaisieCourante;
    return d.mid(6, 4) + d.mid(3, 2) + d.left(2);
}

// Une ligne telle que la saisie la laisse : montant positif quand le compte grandit de son
// côté naturel (débit pour E1 et E2, crédit pour R1 et R2).
inline table::Saisie Ligne(const QString& numero, const QString& dc, Montant absolu,
                           const QString& journal = QStringLiteral("V")) {
    table::Compte c;
    LireCompte(Cle, numero, c);
    table::Saisie s;
    s.wDateEcr = DateStockee();
    s.wDatePiece = DateStockee();
    s.wNumCpt = numero;
    s.wErEcr = c.ErCpt;
    s.wLibCpt = c.LibCpt;
    s.wSolde = c.Solde;
    s.wTiers = c.Tiers;
    s.wBilan = c.Bilan;
    s.wMenu = c.Menu;
    s.wLibEcr = QStringLiteral("Essai ") + numero;
    const bool debitNaturel = c.ErCpt.startsWith(u'E');
    s.wMntEcr = (dc == QLatin1String("D")) == debitNaturel ? absolu : -absolu;
    s.wDCEcr = dc;
    s.wJournal = journal;
    s.wMenuLigne = QStringLiteral("V01");
    return s;
}

inline void Saisir(const QString& numero, const QString& dc, Montant absolu,
                   const QString& journal = QStringLiteral("V")) {
    table::Saisie s = Ligne(numero, dc, absolu, journal);
    AjouterSaisie(s);
}

inline double DernierNumero() {
    table::Constante k;
    LireConstante(Cle, k);
    return k.LastNumEcrit;
}

// Passe wSaisie comme un écran de saisie : numéro suivant, monnaie "E".
inline void Passer(const QString& monnaie = QStringLiteral("E")) {
    PasserEcriture(QString::number(DernierNumero() + 1), monnaie);
}

// Vente, achat, règlement : trois lignes équilibrées d'un coup.
inline void Vente(Montant ht, Montant tva) {
    ViderSaisie();
    Saisir(QStringLiteral("411001"), QStringLiteral("D"), ht + tva);
    Saisir(QStringLiteral("707"), QStringLiteral("C"), ht);
    Saisir(QStringLiteral("44571"), QStringLiteral("C"), tva);
    Passer();
}

// --- Vidage ---

inline QStringList VidageTable(const std::string& table) {
    QStringList lignes;
    SQLite::Statement q(Base(), "SELECT * FROM \"" + table + "\"");
    while (q.executeStep()) {
        QString l = QString::fromStdString(table);
        for (int i = 0; i < q.getColumnCount(); ++i)
            l += u'|' + QString::fromUtf8(q.getColumnName(i)) + u'=' +
                 QString::fromUtf8(q.getColumn(i).getText());
        lignes << l;
    }
    return lignes;
}

// Toutes les tables sauf wSaisie (que la reprise ne touche pas), lignes triées : l'ordre
// physique change quand une image redevient la ligne de l'exercice.
inline QStringList Vidage() {
    QStringList tables;
    {
        SQLite::Statement q(Base(), "SELECT name FROM sqlite_master WHERE type='table' "
                                    "AND name<>'wSaisie' ORDER BY name");
        while (q.executeStep())
            tables << QString::fromUtf8(q.getColumn(0).getText());
    }
    QStringList tout;
    for (const QString& t : tables)
        tout << VidageTable(t.toStdString());
    tout.sort();
    return tout;
}

// Lignes de b absentes de a (multiensembles).
inline QStringList Difference(const QStringList& a, const QStringList& b) {
    QMap<QString, int> compte;
    for (const QString& l : a)
        ++compte[l];
    QStringList reste;
    for (const QString& l : b)
        if (compte.value(l) > 0)
            --compte[l];
        else
            reste << l;
    return reste;
}

// --- Recalcul indépendant ---

struct CumulsCompte {
    Montant sde, cumD, cumC;
    std::array<Montant, 13> d{}, c{};
};

struct CumulsBudget {
    Montant reel;
    std::array<Montant, 13> m{};
};

// Etat de départ : comptes, budgets et constante avant toute écriture.
struct Depart {
    std::map<QString, table::Compte> comptes;
    std::map<QString, table::Budget> budgets;
    table::Constante constante;
};

inline Depart Photographier() {
    Depart d;
    SQLite::Statement q(Base(), "SELECT NumCpt FROM Compte WHERE CleCpt=?");
    q.bind(1, Cle.toStdString());
    while (q.executeStep()) {
        const QString n = QString::fromUtf8(q.getColumn(0).getText());
        LireCompte(Cle, n, d.comptes[n]);
        table::Budget b;
        if (LireBudget(Cle, n, b)) d.budgets[n] = b;
    }
    LireConstante(Cle, d.constante);
    return d;
}

inline QString Ecart(const QString& quoi, Montant attendu, Montant lu) {
    if (attendu == lu) return {};
    return QStringLiteral("%1 : attendu %2, lu %3\n")
        .arg(quoi, FormatFixe(attendu), FormatFixe(lu));
}

// Cumuls attendus d'après les lignes d'Ecriture et l'état de départ, comparés à la base.
// Rend la liste des écarts (vide si tout concorde).
inline QString EcartsAvecRecalcul(const Depart& depart) {
    std::map<QString, CumulsCompte> comptes;
    std::map<QString, CumulsBudget> budgets;
    for (const auto& [n, c] : depart.comptes) {
        comptes[n].sde = c.Sde;
        comptes[n].cumD = c.CumD;
        comptes[n].cumC = c.CumC;
        for (int i = 1; i <= 12; ++i) {
            comptes[n].d[i] = c.CumDM[i];
            comptes[n].c[i] = c.CumCM[i];
        }
    }
    for (const auto& [n, b] : depart.budgets) {
        budgets[n].reel = b.Reel;
        for (int i = 1; i <= 12; ++i)
            budgets[n].m[i] = b.ReelM[i];
    }
    table::Constante k = depart.constante;
    std::map<QChar, std::pair<Montant*, Montant*>> journaux = {{u'V', {&k.TDJV, &k.TCJV}},
                                                               {u'A', {&k.TDJA, &k.TCJA}},
                                                               {u'T', {&k.TDJT, &k.TCJT}},
                                                               {u'D', {&k.TDJD, &k.TCJD}},
                                                               {u'I', {&k.TDJI, &k.TCJI}}};
    std::map<QChar, std::pair<table::Mensuel*, table::Mensuel*>> journauxMois = {
        {u'V', {&k.TDJVM, &k.TCJVM}},
        {u'A', {&k.TDJAM, &k.TCJAM}},
        {u'T', {&k.TDJTM, &k.TCJTM}},
        {u'D', {&k.TDJDM, &k.TCJDM}},
        {u'I', {&k.TDJIM, &k.TCJIM}}};

    SQLite::Statement q(Base(), "SELECT NumEcr, NumCptEcr, DCEcr, MntEcr, Journal, Fin, "
                                "DateEcr, ErEcr FROM Ecriture WHERE CleCpt=? ORDER BY NumEcr");
    q.bind(1, Cle.toStdString());
    QChar journal;
    bool debut = true;
    while (q.executeStep()) {
        const QString n = QString::fromUtf8(q.getColumn(1).getText());
        const bool debit = QString::fromUtf8(q.getColumn(2).getText()) == QLatin1String("D");
        const Montant m = Montant::depuisDixMilliemes(q.getColumn(3).getInt64());
        const int mois = QString::fromUtf8(q.getColumn(6).getText()).mid(4, 2).toInt();
        if (debut) {
            const QString lettre = QString::fromUtf8(q.getColumn(4).getText());
            journal = lettre.isEmpty() ? QChar() : lettre.at(0);
        }
        debut = q.getColumn(5).getInt() != 0;
        k.LastNumEcrit = q.getColumn(0).getDouble();

        table::Compte compte;
        LireCompte(Cle, n, compte);
        QStringList touches{n};
        if (compte.Menu == 160) touches << QStringLiteral("400");
        if (compte.Menu == 170) touches << QStringLiteral("410");
        for (const QString& t : touches) {
            CumulsCompte& c = comptes[t];
            (debit ? c.cumD : c.cumC) += m;
            (debit ? c.d : c.c)[mois] += m;
        }
        const QString debutNumero = n.left(3);
        if (debutNumero >= QLatin1String("600") && debutNumero != QLatin1String("699") &&
            debutNumero != QLatin1String("799")) {
            if (!budgets.count(n) && !depart.budgets.count(n)) budgets[n].reel = compte.Sde;
            budgets[n].reel += m;
            budgets[n].m[mois] += m;
        }

        (debit ? k.TDJG : k.TCJG) += m.abs();
        (debit ? k.TDJGM : k.TCJGM)[mois] += m.abs();
        if (journaux.count(journal)) {
            *(debit ? journaux[journal].first : journaux[journal].second) += m.abs();
            (*(debit ? journauxMois[journal].first : journauxMois[journal].second))[mois] +=
                m.abs();
        }
        const QString er = QString::fromUtf8(q.getColumn(7).getText());
        if (er == QLatin1String("E1")) k.E1 += m;
        if (er == QLatin1String("E2")) k.E2 += m;
        if (er == QLatin1String("R1")) k.R1 += m;
        if (er == QLatin1String("R2")) k.R2 += m;
        const QString bilan = compte.Bilan.trimmed();
        for (auto [nom, champ] :
             std::initializer_list<std::pair<const char*, Montant*>>{{"BIENS", &k.BIENS},
                                                                     {"DAR", &k.DAR},
                                                                     {"MD", &k.MD},
                                                                     {"CONS", &k.CONS},
                                                                     {"SN", &k.SN},
                                                                     {"DAP", &k.DAP},
                                                                     {"ACTI", &k.ACTI}})
            if (bilan == QLatin1String(nom)) *champ += m;
    }
    k.Resultat = k.R2 - k.E2;

    QString ecarts;
    for (const auto& [n, c] : comptes) {
        table::Compte lu;
        if (!LireCompte(Cle, n, lu)) {
            ecarts += QStringLiteral("compte %1 absent\n").arg(n);
            continue;
        }
        ecarts += Ecart(n + QStringLiteral(" CumD"), c.cumD, lu.CumD);
        ecarts += Ecart(n + QStringLiteral(" CumC"), c.cumC, lu.CumC);
        ecarts += Ecart(n + QStringLiteral(" Solde"), c.sde + c.cumD + c.cumC, lu.Solde);
        for (int i = 1; i <= 12; ++i) {
            ecarts += Ecart(n + QStringLiteral(" CumDM%1").arg(i), c.d[i], lu.CumDM[i]);
            ecarts += Ecart(n + QStringLiteral(" CumCM%1").arg(i), c.c[i], lu.CumCM[i]);
        }
    }
    for (const auto& [n, b] : budgets) {
        table::Budget lu;
        if (!LireBudget(Cle, n, lu)) {
            ecarts += QStringLiteral("budget %1 absent\n").arg(n);
            continue;
        }
        ecarts += Ecart(n + QStringLiteral(" Reel"), b.reel, lu.Reel);
        for (int i = 1; i <= 12; ++i)
            ecarts += Ecart(n + QStringLiteral(" ReelM%1").arg(i), b.m[i], lu.ReelM[i]);
    }
    table::Constante lu;
    LireConstante(Cle, lu);
    if (lu.LastNumEcrit != k.LastNumEcrit)
        ecarts += QStringLiteral("LastNumEcrit : attendu %1, lu %2\n")
                      .arg(k.LastNumEcrit)
                      .arg(lu.LastNumEcrit);
    const QList<std::tuple<const char*, Montant, Montant>> totaux = {
        {"TDJG", k.TDJG, lu.TDJG},    {"TCJG", k.TCJG, lu.TCJG},
        {"TDJV", k.TDJV, lu.TDJV},    {"TCJV", k.TCJV, lu.TCJV},
        {"TDJA", k.TDJA, lu.TDJA},    {"TCJA", k.TCJA, lu.TCJA},
        {"TDJT", k.TDJT, lu.TDJT},    {"TCJT", k.TCJT, lu.TCJT},
        {"TDJD", k.TDJD, lu.TDJD},    {"TCJD", k.TCJD, lu.TCJD},
        {"TDJI", k.TDJI, lu.TDJI},    {"TCJI", k.TCJI, lu.TCJI},
        {"E1", k.E1, lu.E1},          {"E2", k.E2, lu.E2},
        {"R1", k.R1, lu.R1},          {"R2", k.R2, lu.R2},
        {"BIENS", k.BIENS, lu.BIENS}, {"DAR", k.DAR, lu.DAR},
        {"MD", k.MD, lu.MD},          {"CONS", k.CONS, lu.CONS},
        {"SN", k.SN, lu.SN},          {"DAP", k.DAP, lu.DAP},
        {"ACTI", k.ACTI, lu.ACTI},    {"Resultat", k.Resultat, lu.Resultat},
        {"SDE1", k.SDE1, lu.SDE1},    {"SDR1", k.SDR1, lu.SDR1}};
    for (const auto& [nom, attendu, valeur] : totaux)
        ecarts += Ecart(QString::fromUtf8(nom), attendu, valeur);
    for (int i = 1; i <= 12; ++i) {
        ecarts += Ecart(QStringLiteral("TDJGM%1").arg(i), k.TDJGM[i], lu.TDJGM[i]);
        ecarts += Ecart(QStringLiteral("TCJGM%1").arg(i), k.TCJGM[i], lu.TCJGM[i]);
        for (const auto& [lettre, champs] : journauxMois) {
            ecarts += Ecart(QStringLiteral("TDJ%1M%2").arg(lettre).arg(i), (*champs.first)[i],
                            (lu.*(lettre == u'V'   ? &table::Constante::TDJVM
                                  : lettre == u'A' ? &table::Constante::TDJAM
                                  : lettre == u'T' ? &table::Constante::TDJTM
                                  : lettre == u'D' ? &table::Constante::TDJDM
                                                   : &table::Constante::TDJIM))[i]);
            ecarts += Ecart(QStringLiteral("TCJ%1M%2").arg(lettre).arg(i), (*champs.second)[i],
                            (lu.*(lettre == u'V'   ? &table::Constante::TCJVM
                                  : lettre == u'A' ? &table::Constante::TCJAM
                                  : lettre == u'T' ? &table::Constante::TCJTM
                                  : lettre == u'D' ? &table::Constante::TCJDM
                                                   : &table::Constante::TCJIM))[i]);
        }
    }
    return ecarts;
}

// Vérification des livres et recalcul depuis les lignes : les écarts (vide si tout va).
inline QString EcartsDesLivres(const Depart& depart) {
    QString ecarts = EcartsAvecRecalcul(depart);
    if (!Verification()) ecarts += QStringLiteral("la vérification des livres échoue\n");
    return ecarts;
}

inline int Compter(const std::string& sql) {
    return Base().execAndGet(sql).getInt();
}

} // namespace essai
