#pragma once
// Un disque qui tombe en panne à la demande : un VFS de SQLite posé sur celui du système,
// qui compte les lectures, écritures et synchronisations des fichiers de base et fait
// échouer la N-ième (erreur d'entrée-sortie ou disque plein), une seule fois ou pour de bon.

#include <QString>

namespace support {

enum class Acces { Lecture, Ecriture, Synchro };
enum class Panne { ErreurDisque, DisquePlein };

// Installe le VFS comme VFS par défaut (une fois pour tout le processus).
void InstallerDisqueFautif();

// Les comptes repartent de zéro ; aucune panne n'est armée.
void RemettreDisqueAZero();
int NombreAcces(Acces acces);

// Fait échouer le rang-ième accès de ce genre (à compter de 1) ; durable : tous les accès
// de ce genre qui suivent échouent aussi, comme un disque débranché.
void ArmerPanne(Acces acces, int rang, Panne panne, bool durable);
// Vrai si la panne armée s'est produite.
bool PanneSurvenue();

QString NomAcces(Acces acces);

} // namespace support
