#include "session/Texte.h"
#include "ui/Boite.h"

// À part de Texte.cpp : seule cette routine a besoin des boîtes.
void AfficherErreur(const QString& texte, int numeroErreur, const QString& libelleErreur) {
    if (numeroErreur == 0) return;
    ui::Boite(TexteErreur(texte, numeroErreur, libelleErreur), QStringLiteral("Maroval"),
              ui::Icone::Critique);
}
