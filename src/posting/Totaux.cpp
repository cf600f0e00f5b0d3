#include "posting/Totaux.h"

#include "base/ErreurExecution.h"
#include "store/Routines.h"

#include <cmath>

namespace {

using C = table::Constante;

bool Est(const QString& texte, const char* valeur) {
    return texte.trimmed() == QLatin1String(valeur);
}

// Un mois hors de 0 à 12 est l'erreur d'exécution du programme (indice hors limites).
Montant& DuMois(table::Mensuel& m, int mois) {
    if (mois < 0 || mois > 12)
        LeverErreurExecution(
            QStringLiteral("L'indice n'appartient pas à la sélection : mois %1").arg(mois));
    return m[static_cast<std::size_t>(mois)];
}

// Le montant signé s'ajoute tel quel : un crédit sur un compte de charges fait baisser CumC.
void Mouvementer(table::Compte& c, const QString& dc, Montant m, int mois) {
    if (Est(dc, "D")) {
        c.CumD += m;
        DuMois(c.CumDM, mois) += m;
    } else if (Est(dc, "C")) {
        c.CumC += m;
        DuMois(c.CumCM, mois) += m;
    }
    c.Solde = c.Sde + c.CumD + c.CumC;
}

void MouvementerCompte(const QString& cle, const QString& numero, const QString& dc, Montant m,
                       int mois) {
    table::Compte c;
    LireCompte(cle, numero, c);
    Mouvementer(c, dc, m, mois);
    if (!MajCompte(cle, numero, c))
        LeverErreurExecution(
            QStringLiteral("Aucun enregistrement en cours : le compte %1 n'existe pas dans "
                           "l'exercice %2.")
                .arg(numero.trimmed(), cle));
}

void MajBudgetLigne(const QString& cle, const QString& numero, Montant m, int mois) {
    table::Budget b;
    if (!LireBudget(cle, numero, b)) {
        // Budget fait d'après le compte, qui porte déjà la ligne : on la retire ici pour
        // l'ajouter ensuite comme à toute ligne.
        table::Compte c;
        LireCompte(cle, numero, c);
        b.CleCpt = c.CleCpt;
        b.NumBud = c.NumCpt;
        b.LibBud = c.LibCpt;
        b.ERBUD = c.ErCpt;
        b.Reel = c.Solde - m;
        for (int i = 1; i <= 12; ++i)
            b.ReelM[i] = c.CumDM[i] + c.CumCM[i];
        DuMois(b.ReelM, mois) -= m;
        AjouterBudget(b);
    }
    b.Reel += m;
    DuMois(b.ReelM, mois) += m;
    MajBudget(cle, numero, b);
}

} // namespace

const ChampsJournal* ChampsDuJournal(const QString& lettre) {
    static const ChampsJournal g{&C::TDJG, &C::TDJGM, &C::TCJG, &C::TCJGM};
    static const ChampsJournal v{&C::TDJV, &C::TDJVM, &C::TCJV, &C::TCJVM};
    static const ChampsJournal a{&C::TDJA, &C::TDJAM, &C::TCJA, &C::TCJAM};
    static const ChampsJournal t{&C::TDJT, &C::TDJTM, &C::TCJT, &C::TCJTM};
    static const ChampsJournal d{&C::TDJD, &C::TDJDM, &C::TCJD, &C::TCJDM};
    static const ChampsJournal i{&C::TDJI, &C::TDJIM, &C::TCJI, &C::TCJIM};
    const QString l = lettre.trimmed();
    if (l == QLatin1String("G")) return &g;
    if (l == QLatin1String("V")) return &v;
    if (l == QLatin1String("A")) return &a;
    if (l == QLatin1String("T")) return &t;
    if (l == QLatin1String("D")) return &d;
    if (l == QLatin1String("I")) return &i;
    return nullptr;
}

void CumulsEcriture::AjouterLigne(const table::Saisie& ligne) {
    const Montant m = ligne.wMntEcr;
    if (Est(ligne.wDCEcr, "D"))
        TotalD += m.abs();
    else if (Est(ligne.wDCEcr, "C"))
        TotalC += m.abs();

    const QString er = ligne.wErEcr.trimmed();
    if (er == QLatin1String("E1")) E1 += m;
    if (er == QLatin1String("E2")) E2 += m;
    if (er == QLatin1String("R1")) R1 += m;
    if (er == QLatin1String("R2")) R2 += m;

    const QString bilan = ligne.wBilan.trimmed();
    if (bilan == QLatin1String("BIENS")) BIENS += m;
    if (bilan == QLatin1String("DAR")) DAR += m;
    if (bilan == QLatin1String("MD")) MD += m;
    if (bilan == QLatin1String("CONS")) CONS += m;
    if (bilan == QLatin1String("SN")) SN += m;
    if (bilan == QLatin1String("DAP")) DAP += m;
    if (bilan == QLatin1String("ACTI")) ACTI += m;
}

void MajConstanteEcriture(const QString& cle, const CumulsEcriture& k, const QString& journal,
                          int mois, double dernierNum) {
    table::Constante c;
    LireConstante(cle, c);
    c.LastNumEcrit = dernierNum;
    // Le journal général prend tout ; celui de l'écriture aussi, s'il est connu.
    for (const ChampsJournal* j :
         {ChampsDuJournal(QStringLiteral("G")), ChampsDuJournal(journal)}) {
        if (!j) continue;
        c.*(j->td) += k.TotalD;
        DuMois(c.*(j->tdm), mois) += k.TotalD;
        c.*(j->tc) += k.TotalC;
        DuMois(c.*(j->tcm), mois) += k.TotalC;
    }
    c.E1 += k.E1;
    c.E2 += k.E2;
    c.R1 += k.R1;
    c.R2 += k.R2;
    c.BIENS += k.BIENS;
    c.DAR += k.DAR;
    c.MD += k.MD;
    c.CONS += k.CONS;
    c.SN += k.SN;
    c.DAP += k.DAP;
    c.ACTI += k.ACTI;
    c.Resultat = c.R2 - c.E2;
    MajConstante(cle, c);
}

table::Entier EnEntier(double valeur) {
    const double v = std::nearbyint(valeur);
    if (!(v >= -32768 && v <= 32767))
        LeverErreurExecution(QStringLiteral("Dépassement de capacité : %1").arg(valeur));
    return static_cast<table::Entier>(v);
}

bool CompteBudgetaire(const QString& numero) {
    const QString debut = numero.left(3);
    return debut >= QLatin1String("600") && debut != QLatin1String("699") &&
           debut != QLatin1String("799");
}

void MajComptesLigne(const QString& cle, const table::Saisie& ligne, int mois) {
    MouvementerCompte(cle, ligne.wNumCpt, ligne.wDCEcr, ligne.wMntEcr, mois);
    if (ligne.wMenu == 160)
        MouvementerCompte(cle, QStringLiteral("400"), ligne.wDCEcr, ligne.wMntEcr, mois);
    else if (ligne.wMenu == 170)
        MouvementerCompte(cle, QStringLiteral("410"), ligne.wDCEcr, ligne.wMntEcr, mois);
    if (CompteBudgetaire(ligne.wNumCpt)) MajBudgetLigne(cle, ligne.wNumCpt, ligne.wMntEcr, mois);
}
