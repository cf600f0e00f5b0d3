#pragma once
// Marqueur d'arrêt brutal (section Securite de maroval.ini) et images sous "000000".

// Supprime toutes les images d'une écriture (comptes, budgets, constantes).
void PurgerCleTemporaire();
