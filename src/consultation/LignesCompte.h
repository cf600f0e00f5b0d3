#pragma once
// Les lignes passées sur un compte, dans l'ordre des numéros, avec le solde qui court
// depuis le solde de début : ce que montrent et exportent la consultation d'un compte et
// son détail.

#include "base/Montant.h"

#include <QString>
#include <QStringList>
#include <vector>

class FichierCsv;
namespace ui {
class Grille;
}

struct LigneCompte {
    double NumEcr = 0;
    QString Date; // JJ/MM/AAAA
    QString LibEcr;
    Montant MntEcr;
    bool Debit = false;
    Montant Solde;
};

// Mois 0 : toutes les lignes ; sinon celles de ce mois de la date de saisie, le solde
// comptant aussi toutes les lignes d'avant (le solde d'un mois part de celui qui le précède).
std::vector<LigneCompte> LireLignesCompte(const QString& cle, const QString& numero, int mois,
                                          Montant soldeDebut);

QStringList TitresLignesCompte();
void AfficherLignesCompte(ui::Grille* grille, const std::vector<LigneCompte>& lignes);
// Titre puis une ligne par écriture, tout entre guillemets, nombres sous leur forme simple.
void ExporterLignesCompte(FichierCsv& fichier, const std::vector<LigneCompte>& lignes);

// Phrase et question de fin d'export d'un compte ; nom : le nom proposé sans ".csv".
QString PhraseExportCompte(const QString& nom, const QString& fichier);
QString QuestionExportCompte();
