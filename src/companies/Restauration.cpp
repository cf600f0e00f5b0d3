#include "companies/Restauration.h"

#include "backup/Restauration.h"
#include "companies/OuvertureEcrans.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QDir>

namespace ecran {

namespace {

bool Question(const QString& texte, const QString& titre = QStringLiteral("Maroval"),
              ui::Icone icone = ui::Icone::Question) {
    return ui::Boite(texte, titre, icone, ui::Boutons::OuiNon) == ui::Reponse::Oui;
}

} // namespace

void RestaurerBaseComplete() {
    if (!Question(QStringLiteral(
                      "Si vous confirmez le clic sur ce bouton, vous allez restaurer\n"
                      "TOUTES LES COMPTABILITES PRESENTES DANS VOTRE SAUVEGARDE.\n"
                      "et donc EFFACER LE CONTENU ACTUEL DE VOTRE BASE DE DONNEES MAROVAL.\n"
                      "Cette fonctionnalité est à utiliser par exemple, suite à une panne grave "
                      "d'ordinateur,\n"
                      "où si vous voulez transférer vos comptabilités sur une nouvelle machine.\n"
                      "Est-ce vraiment ce que vous voulez faire ?"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation))
        return;
    if (!Question(QStringLiteral("Maroval va vous demander de désigner un fichier de sauvegarde.\n"
                                 "Voulez-vous continuer ?")))
        return;
    const QString fichier = ui::ChoisirFichierOuvrir(
        QStringLiteral("Choisir la sauvegarde à restaurer"), QDir::homePath(),
        QStringLiteral("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"));
    if (fichier.isEmpty()) return;
    if (!Question(QStringLiteral("Etes-vous certain(e) de vouloir restaurer le fichier %1 ?")
                      .arg(fichier),
                  QStringLiteral("Confirmation")))
        return;

    // Extraction à part, contrôle, un seul renommage, marqueur à 0 et fin du programme :
    // la fin commune de toutes les restaurations.
    RestaurerArchive(fichier);
}

bool AvertissementAncienneRestauration(bool depuisLeMenu) {
    // Depuis le menu, le rappel de compatibilité est encadré ; depuis la création d'une
    // société, il est précédé de son titre.
    const QString cadre =
        QStringLiteral("=========================================================\n");
    const QString compatibilite = QStringLiteral(
        "CETTE FONCTION A ETE CONSERVEE POUR RAISON DE COMPATIBILITE\n"
        "AVEC LES PRECEDENTES VERSIONS DE MAROVAL ET CONCERNE UNIQUEMENT LES\n"
        "SAUVEGARDES EFFECTUEES SUR DISQUETTE AVEC UNE VERSION ANTERIEURE DU LOGICIEL.\n");
    const QString debut =
        depuisLeMenu ? cadre + compatibilite + cadre
                     : QStringLiteral("RESTAURATION D'UNE SAUVEGARDE D'UNE VERSION PRECEDENTE DE "
                                      "MAROVAL.\n") +
                           compatibilite;
    return Question(
        debut + QStringLiteral(
                    "SI VOUS CLIQUEZ SUR CE BOUTON VOUS ALLEZ RESTAURER\n"
                    "UN EXERCICE COMPLET D'UNE SOCIETE.\n"
                    "CETTE FONCTION N'EST A UTILISER QUE LORSQUE CETTE SOCIETE ET CET\n"
                    "EXERCICE N'EXISTENT PLUS DANS VOTRE COMPTABILITE MAROVAL.\n"
                    "PAR EXEMPLE, SUITE A UNE PANNE GRAVE DE VOTRE ORDINATEUR.\n"
                    "OU SI VOUS VOULEZ RE-INSTALLER VOS COMPTABILITES SUR UNE NOUVELLE MACHINE.\n"
                    "EST-CE VRAIMENT CE QUE VOUS VOULEZ FAIRE ?"),
        QStringLiteral("Maroval"), ui::Icone::Exclamation);
}

} // namespace ecran
