#pragma once
// Banc des pannes du disque : une opération (et la fermeture de la base qui la suit à la
// fin du programme) rejouée sur une copie neuve des mêmes données,
// le disque tombant en panne à chaque accès tour à tour (lecture, écriture, synchronisation ;
// erreur ou disque plein ; une fois ou pour de bon). Après chaque panne, le programme
// « redémarre » comme au démarrage réel : la base doit être intègre, les livres vérifiés, et
// l'état celui d'avant ou celui d'après l'opération, jamais un autre.

#include <QString>
#include <QStringList>
#include <functional>

namespace SQLite {
class Database;
}

namespace support {

struct Scenario {
    // Dossier des données préparé (base fermée, maroval.ini) ; jamais modifié.
    QString modele;
    // Met la session sur l'exercice à vérifier, base du dossier ouverte.
    std::function<void(const QString& dossier)> ouvrir;
    // Ce qui précède l'opération sans compter comme elle (remplir wSaisie) ; son effet fait
    // partie de l'état d'avant.
    std::function<void()> preparer;
    // L'opération elle-même ; une exception qui en sort est celle qu'elle donnerait au
    // gestionnaire de l'erreur d'exécution.
    std::function<void()> operation;
    // Contrôle supplémentaire après le redémarrage (vide si tout va) : une sauvegarde faite
    // pendant la panne, par exemple, doit être entière.
    std::function<QString()> controle;
    // Faux pour une opération qui ne touche pas aux livres (une sauvegarde).
    bool changeLesLivres = true;
};

struct BilanPannes {
    int points = 0;     // pannes essayées
    int survenues = 0;  // pannes que l'opération a vraiment rencontrées
    int etatAvant = 0;  // redémarrages sur l'état d'avant
    int etatApres = 0;  // redémarrages sur l'état d'après
    QStringList echecs; // ce qui n'allait pas, panne par panne
};

// Empreinte des livres : toutes les tables sauf celles de travail, lignes triées.
QString EmpreinteLivres();
// La même pour une base quelconque (celle d'une archive, par exemple).
QString EmpreinteLivres(SQLite::Database& base);

// Redémarrage après une fin brutale : contrôle complet du fichier, ouverture, marqueur
// d'arrêt traité comme au démarrage (reprise des images pour "2"), vérification des livres.
// Rend ce qui ne va pas, vide si tout va.
QString Redemarrer(const Scenario& scenario, const QString& dossier);

BilanPannes EssayerPannes(const Scenario& scenario);

// Imprime le bilan (une ligne par opération, les dix premiers échecs) et l'exige propre :
// aucun échec, assez de pannes rencontrées, l'état d'avant vu, et celui d'après aussi quand
// l'opération peut aboutir malgré une panne tardive.
void ExigerBilan(const char* operation, const BilanPannes& bilan, bool deuxIssues = true);

} // namespace support
