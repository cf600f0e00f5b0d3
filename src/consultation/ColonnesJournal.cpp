#include "consultation/ColonnesJournal.h"

#include "consultation/DonneesJournal.h"
#include "ui/Grille.h"

void PreparerColonnesJournal(ui::Grille* grille) {
    grille->FixerColonnes(journal::Titres());
    for (int c : {journal::ColonneNumero, journal::ColonneDebit, journal::ColonneCredit})
        grille->FixerTriMontants(c);
    for (int c : {journal::ColonneDateSaisie, journal::ColonneDatePiece})
        grille->FixerTriDates(c);
}
