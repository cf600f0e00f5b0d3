#pragma once
// Fichier de profil (maroval.ini) : sections "[Nom]" et lignes "cle=valeur", lues et écrites
// clé par clé. Sections et clés sans distinction de casse ; toutes les autres lignes
// (commentaires ";", lignes vides, lignes sans "=") restent octet pour octet.
// Texte en UTF-8, marque d'ordre des octets acceptée et gardée ; chaque ligne ajoutée prend
// la fin de ligne du fichier (celle de sa première ligne, LF pour un fichier neuf).

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <functional>
#include <optional>

class FichierProfil {
public:
    explicit FichierProfil(QString chemin);

    const QString& chemin() const { return chemin_; }

    // Relit le fichier à chaque appel (il est petit, et un autre peut l'avoir changé).
    // Fichier, section ou clé absents, ou fichier illisible : defaut.
    QString Lire(const QString& section, const QString& cle, const QString& defaut = {}) const;

    // Écriture durable avant le retour (fichier temporaire dans le même dossier, fsync,
    // renommage, fsync du dossier). Faux en cas d'échec ; l'ancien fichier reste alors intact.
    bool Ecrire(const QString& section, const QString& cle, const QString& valeur);

    // Plusieurs clés d'une section en une seule écriture durable : toutes ou aucune.
    bool EcrireCles(const QString& section, const QList<QPair<QString, QString>>& cles);

    // Retire la clé, de façon aussi durable. Vrai si elle n'y est plus.
    bool Effacer(const QString& section, const QString& cle);

    // Le même travail sur le contenu du fichier, sans fichier.
    // Valeur lue : sans blancs aux bouts, et sans la paire de guillemets qui l'entoure.
    static QString LireDansTexte(const QByteArray& contenu, const QString& section,
                                 const QString& cle, const QString& defaut = {});

    // Contenu modifié ; rien quand la section, la clé ou la valeur ne peuvent pas s'écrire
    // sur une ligne de profil (fin de ligne, "]" dans la section, "=" dans la clé, clé vide
    // ou commençant par ";" ou "[").
    static std::optional<QByteArray> EcrireDansTexte(const QByteArray& contenu,
                                                     const QString& section, const QString& cle,
                                                     const QString& valeur);
    static std::optional<QByteArray> EffacerDansTexte(const QByteArray& contenu,
                                                      const QString& section, const QString& cle);

    // Essais d'arrêt brutal : appelée juste avant chaque écriture durable (rien par défaut).
    static std::function<void()> AvantEcriture;

private:
    QString chemin_;
};
