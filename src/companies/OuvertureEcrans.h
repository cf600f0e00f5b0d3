#pragma once
// Ouverture des écrans des autres modules depuis l'écran principal et ses voisins : chaque
// appel nomme le type de l'écran. Un écran ouvert ainsi commence une chaîne : "&Quitter"
// s'arrête à lui. Les essais des menus peuvent relever les ouvertures au lieu de montrer les
// écrans.

#include <QString>
#include <functional>

class QWidget;

namespace ecran {

// Nom d'un écran : son type sans l'espace de noms, qui est aussi son objectName.
template <class T> QString NomEcran() {
    const QString nom = QString::fromLatin1(T::staticMetaObject.className());
    return nom.mid(nom.lastIndexOf(QLatin1Char(':')) + 1);
}

// Relevé des essais : appelé avant chaque ouverture avec le nom de l'écran ; vrai, l'écran
// n'est pas montré. Vide (par défaut) : chaque écran se montre.
using Releve = std::function<bool(const QString& nomEcran)>;
void FixerReleve(Releve releve);
bool OuvertureRelevee(const QString& nomEcran);

template <class T> void OuvrirEcran(QWidget* parent) {
    if (OuvertureRelevee(NomEcran<T>())) return;
    T e(parent);
    e.FixerDebutChaine(true);
    e.exec();
}

} // namespace ecran
