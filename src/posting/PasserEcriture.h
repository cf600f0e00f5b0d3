#pragma once
// Le seul écrivain des livres : les lignes de la table de travail wSaisie deviennent des
// lignes d'Ecriture de l'exercice ouvert, et tous les cumuls suivent.

#include <QString>

// Débits et crédits de wSaisie égaux (table vide comprise) ; sinon une boîte critique.
bool ControlerEquilibre();

// Dernum : numéro de la première ligne (LastNumEcrit + 1 lu à l'ouverture de l'écran).
// Monnaie : celle des montants saisis ("E" pour les écrans de saisie).
void PasserEcriture(const QString& Dernum, const QString& Monnaie);

// Passages en lot (reprise d'une comptabilité entière) : tant qu'il vit, les passages ne
// posent pas le marqueur d'arrêt et la base ne synchronise pas chaque validation. Celui qui
// l'ouvre répond seul d'un arrêt au milieu : ce qu'il crée doit pouvoir être retiré entier
// au redémarrage. La base resynchronise tout à sa fin.
class PassagesEnLot {
public:
    PassagesEnLot();
    ~PassagesEnLot();
    PassagesEnLot(const PassagesEnLot&) = delete;
    PassagesEnLot& operator=(const PassagesEnLot&) = delete;
};
