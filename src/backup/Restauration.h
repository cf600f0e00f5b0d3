#pragma once
// Restauration d'une archive de sauvegarde sur toute la base : le chemin commun de l'écran
// de sauvegarde, de la ligne de commande et de la création de société. Rien n'est remplacé
// tant que la base de l'archive n'a pas été extraite à part et reconnue saine.

#include "store/ControleBase.h"

#include <QDateTime>
#include <QString>

// Vrai quand la ligne de commande désigne une archive : elle se termine par ".SAV" ou
// ".SAV"" (guillemet fermant), casse ignorée.
bool EstArchiveLigneCommande(const QString& ligne);

// Ce que devient la base en place quand celle de l'archive prend sa place : remplacée, ou
// gardée à côté sous NomBaseEndommagee quand elle est abîmée (on ne l'ouvre alors jamais).
enum class BaseEnPlace { Remplacee, GardeeACote };

// Fin commune d'une restauration : ferme la base, met en place le maroval.mdb de l'archive,
// remet le marqueur d'arrêt à "0", le dit et termine le programme. En cas d'échec, la boîte
// d'échec est montrée et la fonction rend faux ; la base en place est rouverte telle quelle,
// sauf si elle est abîmée (GardeeACote) : elle reste alors fermée et intacte.
bool RestaurerArchive(const QString& fichier, BaseEnPlace enPlace = BaseEnPlace::Remplacee);

// Le remplacement seul, sans boîte, base fermée : extraction dans un dossier temporaire,
// contrôle, puis un seul renommage. Faux (et base en place intacte) si un pas échoue.
bool RemplacerBaseDepuisArchive(const QString& fichier,
                                BaseEnPlace enPlace = BaseEnPlace::Remplacee);

// Nom du fichier sous lequel une base abîmée est gardée : maroval.mdb.endommage-<date>.
QString NomBaseEndommagee(const QDateTime& moment);

// Démarrage sur une base abîmée ou étrangère : une boîte le dit, où est le fichier, et
// propose la sauvegarde la plus récente de history.xml, une autre archive, ou de quitter.
// Une restauration réussie termine le programme (code 0) ; quitter le termine (code 1).
// Rien n'est jamais écrit dans la base abîmée, rien n'est effacé.
[[noreturn]] void ProposerReprise(const QString& chemin, const DiagnosticBase& diagnostic);

// La sauvegarde la plus récente de l'historique dont le fichier est présent ; vide sinon.
struct SauvegardeConnue {
    QString fichier;
    QString date; // AAAAMMJJHHMMSS
};
SauvegardeConnue DerniereSauvegarde();

// Contrôle d'une base candidate : un fichier SQLite lisible, intègre, dont les tables et
// leurs colonnes sont exactement celles du schéma. Rend la raison du refus, vide si saine.
QString ControlerBaseRestauree(const QString& chemin);

// Textes des boîtes de fin de restauration.
QString TexteEchecRestauration();
QString TexteRestaurationTerminee();
