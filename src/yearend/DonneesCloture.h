#pragma once
// Porte des données de la fin d'exercice : le plan de l'exercice suivant et le transfert des
// soldes. Chaque passe se fait en une seule validation : une panne au milieu laisse
// l'exercice suivant tel qu'il était avant la passe, et la relancer l'achève.

#include "base/Montant.h"
#include "store/Enregistrements.h"

#include <QString>
#include <functional>

namespace cloture {

// Clé de l'exercice qui suit celui de la session.
QString CleSuivante();
bool ConstanteExiste(const QString& cle);

// Le plan de l'exercice suivant : comptes utilisés, les quatre comptes fixes et ceux de
// résultat qui ont une prévision ; lignes de budget des comptes de charges et produits
// (hors 699 et 799) ; ligne de Constante aux dates un an plus tard ; sections. Ce qui
// existe déjà reste tel quel.
void CreerPlanSuivant(const QString& cle, const QString& suivante,
                      const table::Constante& courante);

// Le transfert des soldes de cle sur suivante, jauge(n) aux étapes 20, 50, 60, 75, 90, 100.
void TransfererSoldes(const QString& cle, const QString& suivante,
                      const std::function<void(int)>& jauge);

// Les sections de l'exercice en cours recopiées sur le suivant ; celles qui y sont restent.
void AjouterSectionsSuivant(const QString& cle, const QString& suivante);

} // namespace cloture
