#pragma once
// La liste des comptes de l'exercice et les quatre chiffres d'un compte, communs à la
// consultation d'un compte et au choix du compte à éditer.

#include <QString>

class QLabel;

namespace ui {
class Grille;
}

namespace ecran {

// « Numéro », « Libellé », « Solde » de tous les comptes, par numéro ; le numéro est aussi la
// donnée de la ligne. Les colonnes sont déjà posées.
void RemplirListeComptes(ui::Grille* liste);

// Solde de début, cumul débit, cumul crédit et solde du compte dans ces étiquettes ; faux
// (rien de changé) si le compte n'existe pas.
bool MontrerChiffresCompte(const QString& numero, QLabel* sde, QLabel* cumD, QLabel* cumC,
                           QLabel* solde, QString* libelle = nullptr);

} // namespace ecran
