#include "entry/LigneMenu.h"

#include "store/Acces.h"
#include "ui/Application.h"

bool LireLigneMenu(const QString& cle, table::Tableau& ligne) {
    return acces::LireLigne("Tableau", "tMenuLigne=?", ligne, cle);
}

int ClasseAutorisee(const table::Tableau& ligne, int n) {
    // Le tableau des classes n'a que vingt places.
    if (n < 1 || n > 20)
        ui::LeverErreurExecution(
            QStringLiteral("Indice en dehors de la plage (classe %1 du menu %2).")
                .arg(n)
                .arg(ligne.tMenuLigne.trimmed()));
    return ligne.tMenuAutorise.mid((n - 1) * 4, 3).trimmed().toInt();
}

table::Saisie LignePreparee(const table::Compte& compte, const table::Tableau& caseMenu,
                            double wNumEcrt, const QString& cleCase) {
    table::Saisie r;
    r.wNumEcrt = wNumEcrt;
    r.wNumCpt = compte.NumCpt;
    r.wErEcr = compte.ErCpt;
    r.wLibCpt = compte.LibCpt;
    r.wSolde = compte.Solde;
    r.wTiers = compte.Tiers;
    r.wBilan = compte.Bilan;
    r.wMenu = compte.Menu;
    r.wJournal = caseMenu.tJournal;
    r.wRappel = caseMenu.tRappel;
    r.wSigne = caseMenu.tSigne;
    r.wNombre = caseMenu.tNombre;
    r.wMenuLigne = cleCase;
    return r;
}
