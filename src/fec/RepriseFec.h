#pragma once
// Reprise d'une comptabilité tenue ailleurs, depuis son fichier des écritures comptables :
// une nouvelle société et son exercice, le plan tiré des comptes du fichier, le bilan
// d'ouverture tiré des à-nouveaux, puis chaque écriture passée comme une saisie. Tout ou
// rien : un échec ou un arrêt demandé retire la société entière.

#include "fec/LectureFec.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace fec {

// Journaux de Maroval qu'une écriture reprise peut prendre ; "AN" : les à-nouveaux, qui
// forment le bilan d'ouverture au lieu d'être passés.
const QStringList& JournauxMaroval();
// "Ventes", "Achats"... pour le tableau des journaux.
QString NomJournalMaroval(const QString& code);

// Un journal du fichier, le nombre de ses écritures et le journal de Maroval proposé.
struct JournalDuFichier {
    QString code, libelle;
    int ecritures = 0;
    QString propose;
};
// Dans l'ordre de première apparition. Proposé : AN, RAN, ANO, OUV et un journal dont toutes
// les écritures sont datées du premier jour sur des comptes de bilan, l'une ouvrant le fichier,
// vont aux à-nouveaux ; un code de Maroval reste lui-même ; sinon d'après les comptes touchés
// (7 avec 41 : ventes, 6 avec 40 : achats, 5 : trésorerie, le reste : opérations diverses).
std::vector<JournalDuFichier> JournauxDuFichier(const FichierLu& f);

// Début et fin (AAAAMMJJ) proposés pour l'exercice : le premier jour du fichier ramené au
// premier du mois ; la date de clôture du nom du fichier quand il en porte une, sinon douze
// mois.
void DatesProposees(const FichierLu& f, const QString& nomFichier, QString& debut, QString& fin);

struct Parametres {
    QString nom;                      // de la société
    QString debut, fin;               // AAAAMMJJ
    QHash<QString, QString> journaux; // code du fichier → V, A, T, D, I ou AN
};

// Ce que la reprise refuserait (nom, dates, comptes, à-nouveaux), sans rien écrire.
QStringList ControlerReprise(const FichierLu& f, const Parametres& p);

struct Resultat {
    int numSoc = 0, annee = 0;
    int ecritures = 0, lignes = 0, comptes = 0;
    bool annulee = false;
    QString erreur; // vide quand la société est reprise
};

// avancement(fait, total) après chaque écriture passée ; rendre faux arrête la reprise.
// La session est rendue telle qu'elle était.
Resultat ReprendreFec(const FichierLu& f, const Parametres& p,
                      const std::function<bool(int, int)>& avancement = {});

// Au démarrage : une reprise arrêtée net (coupure, arrêt brutal) a laissé sa société à moitié
// écrite ; elle est retirée entière. Rend les noms des sociétés retirées.
QStringList RetirerReprisesInterrompues();

} // namespace fec
