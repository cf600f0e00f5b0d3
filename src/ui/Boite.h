#pragma once
// La seule routine qui montre une boîte de message. Chaque boîte est notée dans un journal
// que les tests lisent ; un test peut aussi mettre des réponses en file d'attente.

#include <QList>
#include <QString>

namespace ui {

enum class Icone { Aucune, Information, Question, Exclamation, Critique };
enum class Boutons { OK, OKAnnuler, OuiNon, OuiNonAnnuler, RecommencerAnnuler };
enum class Reponse { OK, Annuler, Oui, Non, Recommencer };

struct EntreeJournal {
    QString titre;
    QString texte;
    Icone icone = Icone::Aucune;
    Reponse reponse = Reponse::OK;
    Boutons boutons = Boutons::OK;
    int boutonParDefaut = 1;
};

// Montre la boîte (objectName "Boite") et rend la réponse. boutonParDefaut : 1, 2 ou 3,
// rang du bouton par défaut dans l'ordre des boutons. Echap rend Non sur une boîte Oui/Non,
// Annuler quand la boîte a ce bouton, OK sur une boîte OK.
Reponse Boite(const QString& texte, const QString& titre = QStringLiteral("Maroval"),
              Icone icone = Icone::Aucune, Boutons boutons = Boutons::OK, int boutonParDefaut = 1);

// Pour les tests : réponses données d'avance (premier entré, premier servi). Une réponse
// qui n'est pas un bouton de la boîte arrête le programme avec un message clair.
void RepondreBoite(Reponse reponse);
int ReponsesEnAttente();
void OublierReponsesBoite();
const QList<EntreeJournal>& JournalBoites();
// Vide le journal seulement (les réponses en attente restent).
void ViderJournalBoites();

// Libellé français du bouton : "OK", "Annuler", "Oui", "Non", "Recommencer".
QString LibelleReponse(Reponse reponse);
bool ReponsePossible(Boutons boutons, Reponse reponse);

} // namespace ui
