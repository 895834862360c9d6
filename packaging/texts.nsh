; What the installer and the uninstaller say, beside the sentences that NSIS brings along.

!macro Text NAME ENGLISH GERMAN FRENCH SPANISH
    LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
    LangString ${NAME} ${LANG_GERMAN} "${GERMAN}"
    LangString ${NAME} ${LANG_FRENCH} "${FRENCH}"
    LangString ${NAME} ${LANG_SPANISH} "${SPANISH}"
!macroend

!define NEW_LINE "$\r$\n"
!define EMPTY_LINE "$\r$\n$\r$\n"

; As the registry holds it (dictionary.h).
!insertmacro Text LanguageOfProgram "en" "de" "fr" "sp"

!insertmacro Text WelcomeText \
    "Tessarine records what you do with mouse and keyboard, and plays it back later.${EMPTY_LINE}It is installed for you alone, and you need not be an administrator. Its folder:${NEW_LINE}$INSTDIR${EMPTY_LINE}If Tessarine is there already, it is replaced or repaired. Your jobs and settings stay as they are." \
    "Tessarine zeichnet auf, was Sie mit Maus und Tastatur tun, und spielt es später wieder ab.${EMPTY_LINE}Es wird nur für Sie installiert, und Sie brauchen dafür kein Administrator zu sein. Der Ordner:${NEW_LINE}$INSTDIR${EMPTY_LINE}Ist Tessarine schon da, wird es ersetzt oder repariert. Ihre Aufgaben und Einstellungen bleiben, wie sie sind." \
    "Tessarine enregistre ce que vous faites avec la souris et le clavier, et le rejoue plus tard.${EMPTY_LINE}Il est installé pour vous seul, sans droits d'administrateur. Son dossier :${NEW_LINE}$INSTDIR${EMPTY_LINE}Si Tessarine est déjà là, il est remplacé ou réparé. Vos tâches et vos paramètres restent tels quels." \
    "Tessarine graba lo que usted hace con el ratón y el teclado, y lo reproduce más tarde.${EMPTY_LINE}Se instala solo para usted y no hace falta ser administrador. Su carpeta:${NEW_LINE}$INSTDIR${EMPTY_LINE}Si Tessarine ya está ahí, se reemplaza o se repara. Sus tareas y su configuración quedan como están."

!insertmacro Text WindowsIsTooOld \
    "Tessarine needs Windows 10 or newer." \
    "Tessarine braucht Windows 10 oder neuer." \
    "Tessarine a besoin de Windows 10 ou plus récent." \
    "Tessarine necesita Windows 10 o posterior."

!insertmacro Text SetupIsOpen \
    "Tessarine is being installed or removed already. Please bring that to an end first." \
    "Tessarine wird schon installiert oder entfernt. Bitte bringen Sie das zuerst zu Ende." \
    "Tessarine est déjà en cours d'installation ou de suppression. Veuillez d'abord terminer cela." \
    "Tessarine ya se está instalando o desinstalando. Termine eso primero."

!insertmacro Text ProgramIsBusy \
    "Tessarine is busy: it records or runs a job, asks something, has a job open in the editor, or a change of a job is not saved yet.${EMPTY_LINE}Please bring that to an end, then try again. Nothing has been changed so far." \
    "Tessarine ist beschäftigt: Es zeichnet auf oder spielt eine Aufgabe ab, fragt etwas, hat eine Aufgabe im Editor offen, oder eine Änderung an einer Aufgabe ist noch nicht gespeichert.${EMPTY_LINE}Bitte bringen Sie das zu Ende und versuchen Sie es dann noch einmal. Bisher wurde nichts verändert." \
    "Tessarine est occupé : il enregistre ou lance une tâche, pose une question, a une tâche ouverte dans l'éditeur, ou une modification d'une tâche n'est pas encore enregistrée.${EMPTY_LINE}Veuillez terminer cela, puis réessayer. Rien n'a été modifié jusqu'ici." \
    "Tessarine está ocupado: graba o ejecuta una tarea, pregunta algo, tiene una tarea abierta en el editor, o un cambio de una tarea aún no se ha guardado.${EMPTY_LINE}Termine eso y vuelva a intentarlo. Hasta ahora no se ha cambiado nada."

!insertmacro Text FileIsBusy \
    "The file '$busyFile' is in use, or may not be written. Please close what uses it (the help, for example), then try again." \
    "Die Datei '$busyFile' wird gerade benutzt oder darf nicht geschrieben werden. Bitte schließen Sie, was sie benutzt (zum Beispiel die Hilfe), und versuchen Sie es dann noch einmal." \
    "Le fichier « $busyFile » est en cours d'utilisation ou protégé en écriture. Veuillez fermer ce qui l'utilise (l'aide, par exemple), puis réessayer." \
    "El archivo «$busyFile» está en uso o no se puede escribir. Cierre lo que lo usa (la ayuda, por ejemplo) y vuelva a intentarlo."

!insertmacro Text NothingChanged \
    "Nothing has been changed." \
    "Es wurde nichts verändert." \
    "Rien n'a été modifié." \
    "No se ha cambiado nada."

!insertmacro Text RemovalStopped \
    "Tessarine has not been removed completely. Please try again later." \
    "Tessarine wurde nicht ganz entfernt. Bitte versuchen Sie es später noch einmal." \
    "Tessarine n'a pas été supprimé entièrement. Veuillez réessayer plus tard." \
    "Tessarine no se ha quitado del todo. Vuelva a intentarlo más tarde."

; What the Explorer shows of a job: its type, and the entries of its menu.
!insertmacro Text JobType "Tessarine job" "Tessarine-Aufgabe" "Tâche Tessarine" "Tarea de Tessarine"
!insertmacro Text VerbRun "&Run" "&Starten" "&Lancer" "&Iniciar"
!insertmacro Text VerbEdit "&Edit" "&Bearbeiten" "&Modifier" "E&ditar"

!insertmacro Text RemoveTitle \
    "Remove Tessarine" \
    "Tessarine entfernen" \
    "Supprimer Tessarine" \
    "Quitar Tessarine"
!insertmacro Text RemoveSubtitle \
    "What is to become of your jobs and settings?" \
    "Was soll aus Ihren Aufgaben und Einstellungen werden?" \
    "Que doivent devenir vos tâches et vos paramètres ?" \
    "¿Qué se hace con sus tareas y su configuración?"
!insertmacro Text RemoveText \
    "Tessarine is removed from this computer. Your jobs ($jobCount) and settings lie in this folder:${EMPTY_LINE}$dataFolder" \
    "Tessarine wird von diesem Computer entfernt. Ihre Aufgaben ($jobCount) und Einstellungen liegen in diesem Ordner:${EMPTY_LINE}$dataFolder" \
    "Tessarine va être supprimé de cet ordinateur. Vos tâches ($jobCount) et vos paramètres se trouvent dans ce dossier :${EMPTY_LINE}$dataFolder" \
    "Tessarine se quita de este equipo. Sus tareas ($jobCount) y su configuración están en esta carpeta:${EMPTY_LINE}$dataFolder"
!insertmacro Text KeepJobs \
    "&Keep my jobs and settings" \
    "Meine Aufgaben und Einstellungen &behalten" \
    "&Conserver mes tâches et mes paramètres" \
    "&Conservar mis tareas y mi configuración"
!insertmacro Text DeleteJobs \
    "&Delete my jobs and settings as well" \
    "Meine Aufgaben und Einstellungen auch &löschen" \
    "&Effacer aussi mes tâches et mes paramètres" \
    "&Eliminar también mis tareas y mi configuración"
!insertmacro Text DeleteJobsText \
    "They are gone for good then. Other files in the folder stay." \
    "Sie sind dann endgültig weg. Andere Dateien in dem Ordner bleiben." \
    "Ils sont alors perdus pour de bon. Les autres fichiers du dossier restent." \
    "Se pierden entonces para siempre. Los demás archivos de la carpeta se quedan."
