#!/bin/sh
# Compresse sauve.mdb en sauve.md_ pour la disquette, puis écrit sauve.log : son apparition
# dit à Maroval que la compression est finie (0 si elle a réussi).
# Emploi : sauveg.sh <compresseur> <dossier des données>
cd "$2" || exit 1
rm -f sauve.md_ sauve.log.tmp
if "$1" sauve.mdb sauve.md_; then etat=0; else etat=1; fi
echo "$etat" > sauve.log.tmp && mv sauve.log.tmp sauve.log
