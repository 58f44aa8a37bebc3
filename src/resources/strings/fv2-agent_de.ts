<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The fv2-agent authors -->
<!-- SPDX-License-Identifier: Apache-2.0 -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>

    <!-- Messages about the state of the disk; a text with a command carries one command link -->
    <message id="IDUS_ORM_SM_INIT">
        <source>Your disk is being prepared</source>
        <translation>Ihre Festplatte wird vorbereitet</translation>
    </message>
    <message id="IDUS_ORM_SM_BADCONFIG">
        <source>Encryption settings are missing</source>
        <translation>Einstellungen zur Verschlüsselung fehlen</translation>
    </message>
    <message id="IDUS_ORM_SM_BADFCONFIG">
        <source>The settings for disk encryption are missing or not valid on this computer. Please contact your administrator, who can correct them.</source>
        <translation>Die Einstellungen zur Festplattenverschlüsselung fehlen auf diesem Computer oder sind ungültig. Bitte wenden Sie sich an Ihre Systemadministration, die das beheben kann.</translation>
    </message>
    <message id="IDUS_ORM_SM_NOT_ENCD">
        <source>Your disk is not encrypted</source>
        <translation>Ihre Festplatte ist nicht verschlüsselt</translation>
    </message>
    <message id="IDUS_ORM_SM_NOT_ENCD_DESC">
        <source>The data on this computer is not yet protected by encryption. If there is something for you to do, a message here tells you.</source>
        <translation>Die Daten auf diesem Computer sind noch nicht durch Verschlüsselung geschützt. Wenn Sie etwas tun müssen, erfahren Sie es hier in einer Meldung.</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_ENC">
        <source>Your password is needed for encryption</source>
        <translation>Zum Verschlüsseln wird Ihr Passwort benötigt</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_ENC_DESC">
        <source>This disk is to be encrypted to protect your data. You can keep working meanwhile.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Enter your password&lt;/A&gt;</source>
        <translation>Diese Festplatte soll zum Schutz Ihrer Daten verschlüsselt werden. Sie können währenddessen weiterarbeiten.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Geben Sie Ihr Passwort ein&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ORM_SM_STARTING_ENC">
        <source>Encryption starts as soon as the preparation is done. You can keep working.</source>
        <translation>Die Verschlüsselung beginnt, sobald die Vorbereitung abgeschlossen ist. Sie können weiterarbeiten.</translation>
    </message>
    <message id="IDUS_ORM_SM_ENCING">
        <source>Your disk is being encrypted</source>
        <translation>Ihre Festplatte wird verschlüsselt</translation>
    </message>
    <message id="IDUS_ORM_SM_ENCING_DESC">
        <source>You can keep working. Your data is fully protected once encryption has finished.</source>
        <translation>Sie können weiterarbeiten. Ihre Daten sind vollständig geschützt, sobald die Verschlüsselung abgeschlossen ist.</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_DEC">
        <source>Your password is needed for decryption</source>
        <translation>Zum Entschlüsseln wird Ihr Passwort benötigt</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_DEC_DESC">
        <source>The encryption of this disk is to be removed. Afterwards your data is no longer protected by encryption.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Enter your password&lt;/A&gt;</source>
        <translation>Die Verschlüsselung dieser Festplatte soll aufgehoben werden. Danach sind Ihre Daten nicht mehr durch Verschlüsselung geschützt.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Geben Sie Ihr Passwort ein&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ORM_SM_STARTING_DEC">
        <source>Decryption starts as soon as the preparation is done. You can keep working.</source>
        <translation>Die Entschlüsselung beginnt, sobald die Vorbereitung abgeschlossen ist. Sie können weiterarbeiten.</translation>
    </message>
    <message id="IDUS_ORM_SM_DECING">
        <source>Your disk is being decrypted</source>
        <translation>Ihre Festplatte wird entschlüsselt</translation>
    </message>
    <message id="IDUS_ORM_SM_DECING_DESC">
        <source>You can keep working. Once decryption has finished, your data is no longer protected by encryption.</source>
        <translation>Sie können weiterarbeiten. Sobald die Entschlüsselung abgeschlossen ist, sind Ihre Daten nicht mehr durch Verschlüsselung geschützt.</translation>
    </message>
    <message id="IDUS_ORM_SM_OTHER_MANAGED">
        <source>Encryption is managed elsewhere</source>
        <translation>Die Verschlüsselung wird anderweitig verwaltet</translation>
    </message>
    <message id="IDUS_ORM_SM_OTHER_MANAGED_DESC">
        <source>The encryption of this disk was not set up by this program, so it cannot be managed here. Please contact your administrator.</source>
        <translation>Die Verschlüsselung dieser Festplatte wurde nicht von diesem Programm eingerichtet und kann hier nicht verwaltet werden. Bitte wenden Sie sich an Ihre Systemadministration.</translation>
    </message>
    <message id="IDUS_ORM_SM_PERCENT_FMT">
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message id="IDUS_ORM_SM_SYNC">
        <source>Synchronization</source>
        <translation>Synchronisierung</translation>
    </message>
    <message id="IDUS_ORM_SM_SYNC_ISSUE">
        <source>The last synchronization with the management server did not succeed. If trying again does not help, check your network connection or contact your administrator.
&lt;A TYPE="COMMAND" COMMAND="RETRY-SYNC" TITLE"&gt;Try again&lt;/A&gt;</source>
        <translation>Die letzte Synchronisierung mit dem Verwaltungsserver ist fehlgeschlagen. Wenn ein neuer Versuch nicht hilft, prüfen Sie Ihre Netzwerkverbindung oder wenden Sie sich an Ihre Systemadministration.
&lt;A TYPE="COMMAND" COMMAND="RETRY-SYNC" TITLE"&gt;Versuchen Sie es erneut&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ORM_SM_SYNC_ACTIVE">
        <source>This computer is exchanging its settings with the management server. There is nothing for you to do.</source>
        <translation>Dieser Computer gleicht seine Einstellungen mit dem Verwaltungsserver ab. Sie müssen nichts tun.</translation>
    </message>

    <!-- Captions of command links -->
    <message id="IDUS_LINK_RETRY_SYNC">
        <source>Try again</source>
        <translation>Versuchen Sie es erneut</translation>
    </message>
    <message id="IDUS_LINK_ENTER_PASSWORD_DIALOG">
        <source>Enter your password</source>
        <translation>Geben Sie Ihr Passwort ein</translation>
    </message>
    <message id="IDUS_LINK_SHOW_ENTER_PASSWORD_DIALOG">
        <source>Show the password window</source>
        <translation>Passwortfenster anzeigen</translation>
    </message>

    <!-- Alerts; the communication text is also a status message, so it carries a link -->
    <message id="IDUS_ALERT_TITLE_COMMS">
        <source>The encryption service is not answering</source>
        <translation>Der Verschlüsselungsdienst antwortet nicht</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_COMMS">
        <source>The service that looks after the encryption of this computer could not be reached. If trying again does not help, restart the computer or contact your administrator.
&lt;A TYPE="COMMAND" COMMAND="RETRY-COMMS" TITLE"&gt;Try again&lt;/A&gt;</source>
        <translation>Der Dienst, der sich um die Verschlüsselung dieses Computers kümmert, ist nicht erreichbar. Wenn ein neuer Versuch nicht hilft, starten Sie den Computer neu oder wenden Sie sich an Ihre Systemadministration.
&lt;A TYPE="COMMAND" COMMAND="RETRY-COMMS" TITLE"&gt;Versuchen Sie es erneut&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PROXYSYNC_GENERIC_TITLE">
        <source>Synchronization did not succeed</source>
        <translation>Die Synchronisierung ist fehlgeschlagen</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PROXYSYNC_PROBLEM">
        <source>The settings of this computer could not be exchanged with the management server. Check your network connection and try again later. If that does not help, contact your administrator.</source>
        <translation>Die Einstellungen dieses Computers konnten nicht mit dem Verwaltungsserver abgeglichen werden. Prüfen Sie Ihre Netzwerkverbindung und versuchen Sie es später erneut. Wenn das nicht hilft, wenden Sie sich an Ihre Systemadministration.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_WARNING">
        <source>Enter your password later?</source>
        <translation>Passwort später eingeben?</translation>
    </message>
    <message id="IDUS_ALERT_WARNING_PASSWORD_POSTPONE_ENC">
        <source>Until then your disk stays unencrypted and your data unprotected. You can enter it at any time in the main window.</source>
        <translation>Bis dahin bleibt Ihre Festplatte unverschlüsselt und Ihre Daten bleiben ungeschützt. Sie können es jederzeit im Hauptfenster eingeben.</translation>
    </message>
    <message id="IDUS_ALERT_WARNING_PASSWORD_POSTPONE_DEC">
        <source>Until then your disk stays encrypted. You can enter it at any time in the main window.</source>
        <translation>Bis dahin bleibt Ihre Festplatte verschlüsselt. Sie können es jederzeit im Hauptfenster eingeben.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_FAILURE">
        <source>Your password could not be used</source>
        <translation>Ihr Passwort konnte nicht verwendet werden</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PASSWORD_FAILURE">
        <source>You typed your password correctly, but the encryption service did not accept it. Please try again. If that does not help, contact your administrator.</source>
        <translation>Sie haben Ihr Passwort richtig eingegeben, aber der Verschlüsselungsdienst hat es nicht akzeptiert. Bitte versuchen Sie es erneut. Wenn das nicht hilft, wenden Sie sich an Ihre Systemadministration.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_VALIDATION">
        <source>The password was not accepted</source>
        <translation>Das Passwort wurde nicht akzeptiert</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PASSWORD_VALIDATION">
        <source>Check that Caps Lock is off, then type the password again that you use to log in to this computer.</source>
        <translation>Prüfen Sie, ob die Feststelltaste ausgeschaltet ist, und geben Sie dann noch einmal das Passwort ein, mit dem Sie sich an diesem Computer anmelden.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_UNCHECKED">
        <source>Your password could not be checked</source>
        <translation>Ihr Passwort konnte nicht geprüft werden</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PASSWORD_UNCHECKED">
        <source>This computer cannot check passwords right now. Please try again in a moment. If that does not help, contact your administrator.</source>
        <translation>Dieser Computer kann zurzeit keine Passwörter prüfen. Bitte versuchen Sie es gleich noch einmal. Wenn das nicht hilft, wenden Sie sich an Ihre Systemadministration.</translation>
    </message>

    <!-- Password dialog and buttons -->
    <message id="IDUS_PASSWORDDIALOG_TITLE">
        <source>Enter password</source>
        <translation>Passwort eingeben</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_MESSAGE_ENC">
        <source>Enter the password that you use to log in to this computer. Encryption then starts, and you can keep working.</source>
        <translation>Geben Sie das Passwort ein, mit dem Sie sich an diesem Computer anmelden. Danach beginnt die Verschlüsselung, und Sie können weiterarbeiten.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_MESSAGE_DEC">
        <source>Enter the password that you use to log in to this computer. Decryption then starts, and you can keep working.</source>
        <translation>Geben Sie das Passwort ein, mit dem Sie sich an diesem Computer anmelden. Danach beginnt die Entschlüsselung, und Sie können weiterarbeiten.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_USERNAME">
        <source>User name:</source>
        <translation>Benutzername:</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_PASSWORD">
        <source>Password:</source>
        <translation>Passwort:</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_MOVE_IN">
        <source>Click here or press Tab to type your password.</source>
        <translation>Klicken Sie hier oder drücken Sie die Tabulatortaste, um Ihr Passwort einzugeben.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_CAPS_LOCK">
        <source>Caps Lock is on.</source>
        <translation>Die Feststelltaste ist eingeschaltet.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_CHECKING">
        <source>Checking your password…</source>
        <translation>Ihr Passwort wird geprüft …</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_REFUSED">
        <source>Not added: the password would become too long or hold characters that it cannot have.</source>
        <translation>Nicht übernommen: Das Passwort wäre zu lang oder enthielte unzulässige Zeichen.</translation>
    </message>
    <message id="IDUS_BUTTON_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="IDUS_BUTTON_CANCEL">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="IDUS_BUTTON_POSTPONE">
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message id="IDUS_BUTTON_SHOW_PASSWORD">
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message id="IDUS_BUTTON_HIDE_PASSWORD">
        <source>Hide</source>
        <translation>Verbergen</translation>
    </message>
    <message id="IDUS_BUTTON_HELP">
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message id="IDUS_BUTTON_COPY">
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>

    <!-- Main window, tray item and its menu -->
    <message id="IDUS_PRODUCT_DISPLAY_NAME">
        <source>Disk Encryption Agent</source>
        <translation>Disk Encryption Agent</translation>
    </message>
    <message id="IDUS_MGUI_STATUS_TITLE_GREEN">
        <source>No problems reported</source>
        <translation>Keine Probleme gemeldet</translation>
    </message>
    <message id="IDUS_MGUI_STATUS_TITLE_YELLOW">
        <source>Please read the messages</source>
        <translation>Bitte beachten Sie die Meldungen</translation>
    </message>
    <message id="IDUS_MGUI_STATUS_TITLE_RED">
        <source>Your attention is needed</source>
        <translation>Ihre Aufmerksamkeit ist gefragt</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_PROTECTION_STATUS">
        <source>Protection status</source>
        <translation>Schutzstatus</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_ABOUT">
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message id="IDUS_MGUI_MENUBAR_OPEN_ORM">
        <source>Open window</source>
        <translation>Fenster öffnen</translation>
    </message>
    <message id="IDUS_MGUI_MENUBAR_HIDE_ORM">
        <source>Hide window</source>
        <translation>Fenster ausblenden</translation>
    </message>
    <message id="IDUS_MGUI_MENUBAR_PROXYSYNC_ORM">
        <source>Synchronize now</source>
        <translation>Jetzt synchronisieren</translation>
    </message>

    <!-- About page; a label ends with a blank, because its value follows directly -->
    <message id="IDUS_MGUI_ABOUT">
        <source>About this program</source>
        <translation>Über dieses Programm</translation>
    </message>
    <message id="IDUS_MGUI_PRODUCT_NAME">
        <source>Product: </source>
        <translation>Produkt: </translation>
    </message>
    <message id="IDUS_MGUI_PRODUCT_VERSION">
        <source>Version: </source>
        <translation>Version: </translation>
    </message>
    <message id="IDUS_MGUI_AGENT_VERSION">
        <source>Agent version: </source>
        <translation>Version des Agenten: </translation>
    </message>
    <message id="IDUS_MGUI_COMPUTER_NAME">
        <source>Computer name: </source>
        <translation>Computername: </translation>
    </message>
    <message id="IDUS_MGUI_OPERATING_SYSTEM">
        <source>Operating system: </source>
        <translation>Betriebssystem: </translation>
    </message>
    <message id="IDUS_MGUI_MACHINE">
        <source>Processor: </source>
        <translation>Prozessor: </translation>
    </message>
    <message id="IDUS_MGUI_LAST_SYNC">
        <source>Last synchronization: </source>
        <translation>Letzte Synchronisierung: </translation>
    </message>
    <message id="IDUS_MGUI_LAST_SYNC_ACTIVE">
        <source>Running now</source>
        <translation>Läuft gerade</translation>
    </message>
    <message id="IDUS_MGUI_LAST_SYNC_BLOCKED">
        <source>Waiting until the disk is prepared</source>
        <translation>Wartet, bis die Festplatte vorbereitet ist</translation>
    </message>
    <message id="IDUS_UNKNOWN">
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message id="IDUS_MGUI_COPYRIGHT_WARNING_FIRST_PART_ORM">
        <source>Copyright © 2026 the authors of this program.</source>
        <translation>Copyright © 2026 die Autorinnen und Autoren dieses Programms.</translation>
    </message>
    <message id="IDUS_MGUI_COPYRIGHT_WARNING_SECOND_PART_ORM">
        <source>This program is free software under the Apache License, version 2.0.</source>
        <translation>Dieses Programm ist freie Software unter der Apache-Lizenz, Version 2.0.</translation>
    </message>
    <message id="IDUS_MGUI_COPYRIGHT_WARNING_THIRD_PART_ORM">
        <source>It comes without any warranty, as far as the law permits.</source>
        <translation>Es wird ohne jede Gewährleistung bereitgestellt, soweit das Gesetz es zulässt.</translation>
    </message>

    <!-- Counter beside a menu row, for assistive technology; read as "3, status: warning" -->
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE">
        <source>status:</source>
        <translation>Status:</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_OK">
        <source>in order</source>
        <translation>in Ordnung</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_WARNING">
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_ERROR">
        <source>problem</source>
        <translation>Problem</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_INFO">
        <source>information</source>
        <translation>Information</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_ACC_VALUE_DESC">
        <source>message counter</source>
        <translation>Meldungszähler</translation>
    </message>
    <message id="IDUS_MGUI_PROTECTION_STATUS_INDICATOR_ACC_HELP">
        <source>Opens the messages about the protection of your data; the number says how many there are.</source>
        <translation>Öffnet die Meldungen zum Schutz Ihrer Daten; die Zahl sagt, wie viele es sind.</translation>
    </message>
    <message id="IDUS_MGUI_ABOUT_INDICATOR_ACC_HELP">
        <source>Opens what there is to know about this program and this computer.</source>
        <translation>Öffnet die Angaben zu diesem Programm und diesem Computer.</translation>
    </message>

    <!-- Desktop notifications, and what stands beside texts: the support, and when a prompt comes back, as "in 60 minutes" -->
    <message id="IDUS_PASSWORDDIALOG_HEADING_ENC">
        <source>Encrypt this disk</source>
        <translation>Diese Festplatte verschlüsseln</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_HEADING_DEC">
        <source>Decrypt this disk</source>
        <translation>Diese Festplatte entschlüsseln</translation>
    </message>
    <message id="IDUS_BUTTON_START_ENC">
        <source>Start encryption</source>
        <translation>Verschlüsselung starten</translation>
    </message>
    <message id="IDUS_BUTTON_START_DEC">
        <source>Start decryption</source>
        <translation>Entschlüsselung starten</translation>
    </message>
    <message id="IDUS_MGUI_NOTHING_TO_DO">
        <source>There is nothing for you to do</source>
        <translation>Es gibt für Sie nichts zu tun</translation>
    </message>
    <message id="IDUS_MGUI_NOTHING_TO_DO_DESC">
        <source>A message appears here if your disk or the synchronization needs you.</source>
        <translation>Hier erscheint eine Meldung, wenn Ihre Festplatte oder die Synchronisierung Sie braucht.</translation>
    </message>
    <message id="IDUS_MGUI_CARD_COMPUTER">
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message id="IDUS_MGUI_CARD_LAST_SYNC">
        <source>Last synchronization</source>
        <translation>Letzte Synchronisierung</translation>
    </message>
    <message id="IDUS_MGUI_TAGLINE">
        <source>Managed by your administrator</source>
        <translation>Von Ihrer Systemadministration verwaltet</translation>
    </message>
    <message id="IDUS_ALERT_ASKED_AGAIN">
        <source>We will ask again %1.</source>
        <translation>Wir fragen %1 erneut.</translation>
    </message>
    <message id="IDUS_SUPPORT_CONTACT">
        <source>Support: %1</source>
        <translation>Support: %1</translation>
    </message>
    <message id="IDUS_NOTICE_ENCRYPTED">
        <source>Your disk is encrypted</source>
        <translation>Ihre Festplatte ist verschlüsselt</translation>
    </message>
    <message id="IDUS_NOTICE_ENCRYPTED_DESC">
        <source>Encryption has finished. Your data is now fully protected.</source>
        <translation>Die Verschlüsselung ist abgeschlossen. Ihre Daten sind jetzt vollständig geschützt.</translation>
    </message>
    <message id="IDUS_NOTICE_DECRYPTED">
        <source>Your disk is decrypted</source>
        <translation>Ihre Festplatte ist entschlüsselt</translation>
    </message>
    <message id="IDUS_NOTICE_DECRYPTED_DESC">
        <source>Decryption has finished. Your data is no longer protected by encryption.</source>
        <translation>Die Entschlüsselung ist abgeschlossen. Ihre Daten sind nicht mehr durch Verschlüsselung geschützt.</translation>
    </message>
    <message id="IDUS_NOTICE_NO_TRAY">
        <source>Disk encryption is looked after here</source>
        <translation>Die Festplattenverschlüsselung wird hier überwacht</translation>
    </message>
    <message id="IDUS_NOTICE_NO_TRAY_DESC">
        <source>This desktop has no place for the status icon. To see the state of your disk, open “Disk Encryption Agent” from your applications.</source>
        <translation>Dieser Desktop hat keinen Platz für das Statussymbol. Den Zustand Ihrer Festplatte sehen Sie, wenn Sie „Disk Encryption Agent“ in Ihren Anwendungen öffnen.</translation>
    </message>
    <message id="IDUS_DESKTOP_GENERIC_NAME">
        <source>Disk encryption status</source>
        <translation>Zustand der Festplattenverschlüsselung</translation>
    </message>
    <message id="IDUS_DESKTOP_COMMENT">
        <source>Shows the state of this computer's disk encryption</source>
        <translation>Zeigt den Zustand der Festplattenverschlüsselung dieses Computers</translation>
    </message>
    <message id="IDUS_DESKTOP_KEYWORDS">
        <source>encryption, disk, security, password, tray</source>
        <translation>Verschlüsselung, Festplatte, Sicherheit, Passwort, Kennwort</translation>
    </message>
    <message id="IDUS_METAINFO_DESCRIPTION">
        <source>The agent sits in the tray of each login session and shows whether the disk of this computer is encrypted. It says what is wrong and what to do, asks for the account password when the encryption service needs it, and starts a synchronisation with the management server.</source>
        <translation>Der Agent sitzt im Infobereich jeder Anmeldesitzung und zeigt, ob die Festplatte dieses Computers verschlüsselt ist. Er sagt, was nicht stimmt und was zu tun ist, fragt nach dem Kennwort des Kontos, wenn der Verschlüsselungsdienst es braucht, und startet einen Abgleich mit dem Verwaltungsserver.</translation>
    </message>
</context>
</TS>
