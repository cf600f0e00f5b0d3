#pragma once
// Textes des boîtes de l'écran de sauvegarde, tels que l'utilisateur les lit, et gestes
// sur sa liste.

#include "backup/Backup.h"
#include "support/PiloteModal.h"
#include "ui/Grille.h"

#include <QString>
#include <QTest>

namespace banc {

inline const QString TexteAucuneSelection = QStringLiteral(
    "Vous n'avez sélectionné aucune sauvegarde, voulez-vous effectuer une restauration manuelle "
    "d'une sauvegarde en désignant vous-même le fichier de sauvegarde ?");
inline const QString TexteManuelle = QStringLiteral(
    "Maroval va vous demander de désigner un fichier de sauvegarde.\n\nVoulez-vous continuer ?");
inline const QString TexteInaccessible = QStringLiteral(
    "La sauvegarde que vous avez sélectionnée n'est pas accessible.\n\nConnectez le dispositif "
    "de sauvegarde et cliquez OK.\nou assurez-vous que le fichier existe toujours.");
inline const QString TexteEchec = QStringLiteral(
    "La restauration a échoué. La base de données est introuvable dans votre sauvegarde\nou "
    "votre fichier est endommagé.");
inline const QString TexteTerminee = QStringLiteral(
    "La restauration est terminée.\nMaroval va être arreté pour la prise en compte de la "
    "restauration.\n\nVous pouvez relancer Maroval immédiatement");
inline const QString TexteNonEffectuee = QStringLiteral(
    "Problème lors de la compression de votre sauvegarde.\n\nVérifiez que votre dossier  est "
    "bien accessible.");

inline QString TexteConfirmation(const QString& fichier) {
    return QStringLiteral("Etes-vous certain(e) de vouloir restaurer le fichier ") + fichier +
           QStringLiteral(" ?");
}

inline QString TexteEffectuee(const QString& fichier) {
    return QStringLiteral("Sauvegarde effectuée dans le fichier : \n\n") + fichier;
}

// Montre l'écran sous le pilote ; vrai si toutes les étapes ont eu lieu.
inline bool Piloter(ecran::Backup& ecran, support::PiloteModal& pilote) {
    pilote.Demarrer();
    ecran.exec();
    return pilote.Reussi();
}

inline ui::Grille* Liste(QWidget* ecran) {
    return ecran->findChild<ui::Grille*>(QStringLiteral("SftTree1"));
}

// Clic sur une ligne de la liste, Ctrl pour l'ajouter à la sélection.
inline support::Action ChoisirLignes(const QList<int>& lignes) {
    return [lignes](QWidget* ecran) {
        ui::Grille* g = Liste(ecran);
        for (int i = 0; i < lignes.size(); ++i) {
            if (lignes[i] < 0 || lignes[i] >= g->NombreLignes()) {
                support::SignalerEchec(QStringLiteral("pas de ligne %1").arg(lignes[i]));
                return;
            }
            QTest::mouseClick(g->viewport(), Qt::LeftButton,
                              i == 0 ? Qt::NoModifier : Qt::ControlModifier,
                              g->RectangleCellule(lignes[i], 0).center());
        }
    };
}

} // namespace banc
