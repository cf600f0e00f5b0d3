#include "ui/AfficherErreur.h"

#include "base/Texte.h"
#include "ui/Boite.h"

void AfficherErreur(const QString& texte, int numeroErreur, const QString& libelleErreur) {
    if (numeroErreur == 0) return;
    ui::Boite(TexteErreur(texte, numeroErreur, libelleErreur), QStringLiteral("Maroval"),
              ui::Icone::Critique);
}
