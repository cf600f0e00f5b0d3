#pragma once
// Erreurs des routines de sauvegarde et la boîte qui en donne l'origine : module, routine,
// ligne, numéro et description, pour que l'utilisateur puisse la transmettre telle quelle.

#include <QString>
#include <stdexcept>

// Numéros des erreurs propres aux sauvegardes (les erreurs de la base gardent le leur).
constexpr int ErreurAccesFichier = 75;
constexpr int ErreurFormatHistorique = 3001;

class ErreurSauvegarde : public std::runtime_error {
public:
    ErreurSauvegarde(int numero, const QString& description, const QString& source = QString());
    int Numero() const { return numero; }
    QString Description() const { return description; }
    QString Source() const { return source; }

private:
    int numero;
    QString description;
    QString source;
};

// Texte de la boîte : origine " - Module <module> - <routine> - Ligne <ligne>", numéro et
// description, puis la façon de transmettre l'erreur.
QString TexteErreurOrigine(const QString& module, const QString& routine, int ligne, int numero,
                           const QString& description);

// Montre la boîte "Une erreur est survenue" pour l'exception en cours de traitement.
// À appeler seulement dans un bloc catch.
void AfficherErreurOrigine(const QString& module, const QString& routine, int ligne);
