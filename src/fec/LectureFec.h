#pragma once
// Lecture d'un fichier des écritures comptables venu d'un autre logiciel : tout le fichier
// est contrôlé avant que rien ne soit repris, et chaque refus dit sa ligne en français.
// Séparateur tabulation ou « | » ; texte UTF-8 (avec ou sans marque d'ordre) ou ISO 8859-15 ;
// montants en colonnes Debit / Credit, ou Montant / Sens.

#include "base/Montant.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace fec {

struct LigneLue {
    int ligne = 0; // numéro de ligne dans le fichier, l'en-tête étant la ligne 1
    QString journalCode, journalLib, ecritureNum, ecritureDate; // date AAAAMMJJ
    QString compteNum, compteLib, compAuxNum, compAuxLib;
    QString pieceRef, pieceDate, ecritureLib;
    Montant debit, credit;
};

struct EcritureLue {
    QString journalCode, ecritureNum, date;
    std::vector<LigneLue> lignes;
};

struct FichierLu {
    std::vector<EcritureLue> ecritures; // dans l'ordre du fichier
    QString premierJour, dernierJour;   // dates extrêmes des écritures (AAAAMMJJ)
    QStringList refus;                  // vide quand le fichier peut être repris
    int lignes = 0;
};

FichierLu LireFec(const QByteArray& contenu);

// Le texte : UTF-8 quand il en est (marque d'ordre retirée), sinon ISO 8859-15.
QString DecoderTexte(const QByteArray& contenu);

} // namespace fec
