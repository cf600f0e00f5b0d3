#pragma once
// Un test qui doit voir le processus finir (arrêt d'un test mal écrit, vraie fin du
// programme, arrêt brutal) relance son propre exécutable sur une seule fonction de test,
// marquée par $MAROVAL_ENFANT, et lit ce qu'elle a laissé.

#include <QString>

namespace support {

struct ResultatFils {
    bool termine = false; // fini dans le délai
    bool plante = false;  // fini par un signal (abort, qFatal...)
    int code = -1;
    QString sortie;
    QString erreurs;
};

// Vrai dans le processus fils : la fonction de test fait alors son travail, sinon elle se
// passe (QSKIP).
bool EstProcessusFils();

ResultatFils LancerFonctionEnFils(const QString& fonctionDeTest, int delaiMs = 20000);

} // namespace support
