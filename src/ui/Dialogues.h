#pragma once
// Dialogues communs (ouvrir, enregistrer, imprimante), ouverture d'un fichier par le
// système et aide : comme les boîtes, chaque demande est notée dans un journal, un test
// peut donner les réponses d'avance, et sans réponse le vrai dialogue se montre.

#include <QList>
#include <QString>
#include <functional>

class QDialog;
class QPrinter;

namespace ui {

enum class Dialogue { Ouvrir, Enregistrer, Imprimante, OuvrirFichier, Aide, AideIndex, Apercu };

struct EntreeDialogue {
    Dialogue dialogue = Dialogue::Ouvrir;
    QString titre;
    QString detail; // dossier, nom proposé, fichier ouvert ou numéro de contexte
    QString filtre;
    QString resultat; // fichier choisi ; vide si annulé
    bool accepte = false;
    QString dossier; // dossier où le dialogue de fichier s'ouvre
};

// Filtres à la manière des anciens dialogues : "Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*".
// Rend le fichier choisi, une chaîne vide si l'utilisateur annule.
QString ChoisirFichierOuvrir(const QString& titre, const QString& dossier, const QString& filtre);
QString ChoisirFichierEnregistrer(const QString& titre, const QString& nomParDefaut,
                                  const QString& filtre, const QString& dossier = QString());
// Dialogue d'impression ; faux si annulé.
bool ChoisirImprimante(QPrinter& imprimante);
// Aperçu avant impression (objectName "Apercu") : peindre dessine les pages sur l'imprimante
// donnée ; l'utilisateur imprime depuis l'aperçu ou le ferme. Vrai s'il a imprimé. Une
// réponse donnée d'avance peint tout de suite (vrai) ou rien (faux), sans fenêtre.
bool Apercu(QPrinter& imprimante, const std::function<void(QPrinter*)>& peindre,
            const QString& titre);
// Ouvre le fichier avec le programme que le système lui associe ; faux en cas d'échec.
bool OuvrirFichier(const QString& chemin);

// Traduit un filtre "Description|motif|..." en filtres de QFileDialog (séparés par ";;").
QString FiltreQt(const QString& filtre);

// Pour les tests : réponses d'avance, premier entré, premier servi. Une chaîne vide
// annule le dialogue de fichier.
void RepondreFichier(const QString& chemin);
void RepondreImprimante(bool accepte);
void RepondreApercu(bool imprime);
void RepondreOuvertureFichier(bool reussie);
void OublierReponsesDialogues();
// En mode essai, OuvrirFichier ne lance jamais rien (noté au journal, réussi), et une
// boîte ou un dialogue resté sans réponse est fermé au bout du délai d'essai avec un
// avertissement, au lieu de bloquer le test jusqu'à son arrêt forcé.
void FixerModeEssai(bool actif);
bool ModeEssai();
void FixerDelaiEssai(int millisecondes);
void LimiterEnEssai(QDialog& dialogue);

const QList<EntreeDialogue>& JournalDialogues();
void ViderJournalDialogues();
// Utilisé par l'aide, qui a ses propres fenêtres.
void NoterDialogue(const EntreeDialogue& entree);

} // namespace ui
