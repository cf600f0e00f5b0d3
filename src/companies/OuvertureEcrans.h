#pragma once
// Ouverture des écrans des autres modules depuis l'écran principal : une table explicite
// du nom de chaque écran livré vers l'ouverture de son type. Un écran pas encore livré n'y
// est pas : l'entrée de menu qui le demande prévient l'utilisateur au lieu de ne rien faire.

#include <QString>
#include <functional>

class QWidget;

namespace ecran {

using Ouvreur = std::function<void(QWidget* parent)>;

// Ouvre l'écran modal de ce nom ("Plan2", "Choisais"...) au-dessus de parent. Un écran
// absent montre TexteEcranAbsent() et rend faux.
bool OuvrirEcran(const QString& nom, QWidget* parent);
bool EcranDisponible(const QString& nom);
QString TexteEcranAbsent();

// Les noms que l'écran principal et les écrans de ce module demandent.
QStringList NomsEcransDemandes();

// Pour les tests : remplace l'ouverture d'un écran (un ouvreur vide rend l'écran absent) ;
// OublierOuvreurs rend les vrais écrans.
void FixerOuvreur(const QString& nom, Ouvreur ouvreur);
void OublierOuvreurs();

} // namespace ecran
