#pragma once
// Démarrage du programme : dossiers, configuration, base, marqueur d'arrêt brutal, puis
// écran principal et choix de la société.

#include <QStringList>
#include <functional>

// Les écrans que le démarrage montre. Chaque module d'écran y branche le sien ; un écran
// absent est simplement sauté.
struct EcransDemarrage {
    std::function<void()> MontrerGeneral; // écran principal, sans attendre
    std::function<void()> MontrerRecup;   // reprise après arrêt en cours d'écriture (modal)
    std::function<void()> MontrerSociete; // choix de la société (modal)
};
EcransDemarrage& ecransDemarrage();
// Les écrans réels (écran principal, reprise, choix de la société).
EcransDemarrage EcransParDefaut();

// La routine de démarrage ; arguments : ceux de la ligne de commande (le premier est le
// programme). Rend faux quand le programme doit s'arrêter là ; un dossier des données où
// l'on ne peut pas écrire, ou une base abîmée que l'utilisateur ne reprend pas, terminent
// le programme avec le code 1 après leur boîte.
bool Demarrage(const QStringList& arguments);

// Rend le dossier des données à un autre Maroval (le verrou est aussi rendu à la fin du
// processus).
void LibererDossierDonnees();

// Dossier des données : $MAROVAL_DONNEES, sinon le dossier de données de l'utilisateur.
QString DossierDonneesParDefaut();

// Lit maroval.ini dans la session : mode de mise au point, symbole monétaire, décimales.
void LireConfiguration();

// Contrôle du symbole décimal de la machine ; rend faux si le programme doit finir.
bool ControleSymboleDecimal();

// Décision sur le marqueur d'arrêt brutal lu dans maroval.ini.
void DeciderMarqueur();
