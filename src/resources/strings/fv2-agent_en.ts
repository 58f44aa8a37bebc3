<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-FileCopyrightText: 2026 The fv2-agent authors -->
<!-- SPDX-License-Identifier: Apache-2.0 -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>

    <!-- Messages about the state of the disk; a text with a command carries one command link -->
    <message id="IDUS_ORM_SM_INIT">
        <source>Your disk is being prepared</source>
        <translation>Your disk is being prepared</translation>
    </message>
    <message id="IDUS_ORM_SM_BADCONFIG">
        <source>Encryption settings are missing</source>
        <translation>Encryption settings are missing</translation>
    </message>
    <message id="IDUS_ORM_SM_BADFCONFIG">
        <source>The settings for disk encryption are missing or not valid on this computer. Please contact your administrator, who can correct them.</source>
        <translation>The settings for disk encryption are missing or not valid on this computer. Please contact your administrator, who can correct them.</translation>
    </message>
    <message id="IDUS_ORM_SM_NOT_ENCD">
        <source>Your disk is not encrypted</source>
        <translation>Your disk is not encrypted</translation>
    </message>
    <message id="IDUS_ORM_SM_NOT_ENCD_DESC">
        <source>The data on this computer is not yet protected by encryption. If there is something for you to do, a message here tells you.</source>
        <translation>The data on this computer is not yet protected by encryption. If there is something for you to do, a message here tells you.</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_ENC">
        <source>Your password is needed for encryption</source>
        <translation>Your password is needed for encryption</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_ENC_DESC">
        <source>This disk is to be encrypted to protect your data. You can keep working meanwhile.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Enter your password&lt;/A&gt;</source>
        <translation>This disk is to be encrypted to protect your data. You can keep working meanwhile.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Enter your password&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ORM_SM_STARTING_ENC">
        <source>Encryption starts as soon as the preparation is done. You can keep working.</source>
        <translation>Encryption starts as soon as the preparation is done. You can keep working.</translation>
    </message>
    <message id="IDUS_ORM_SM_ENCING">
        <source>Your disk is being encrypted</source>
        <translation>Your disk is being encrypted</translation>
    </message>
    <message id="IDUS_ORM_SM_ENCING_DESC">
        <source>You can keep working. Your data is fully protected once encryption has finished.</source>
        <translation>You can keep working. Your data is fully protected once encryption has finished.</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_DEC">
        <source>Your password is needed for decryption</source>
        <translation>Your password is needed for decryption</translation>
    </message>
    <message id="IDUS_ORM_SM_WANT_DEC_DESC">
        <source>The encryption of this disk is to be removed. Afterwards your data is no longer protected by encryption.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Enter your password&lt;/A&gt;</source>
        <translation>The encryption of this disk is to be removed. Afterwards your data is no longer protected by encryption.
&lt;A TYPE="COMMAND" COMMAND="ENTER-PASS" TITLE"&gt;Enter your password&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ORM_SM_STARTING_DEC">
        <source>Decryption starts as soon as the preparation is done. You can keep working.</source>
        <translation>Decryption starts as soon as the preparation is done. You can keep working.</translation>
    </message>
    <message id="IDUS_ORM_SM_DECING">
        <source>Your disk is being decrypted</source>
        <translation>Your disk is being decrypted</translation>
    </message>
    <message id="IDUS_ORM_SM_DECING_DESC">
        <source>You can keep working. Once decryption has finished, your data is no longer protected by encryption.</source>
        <translation>You can keep working. Once decryption has finished, your data is no longer protected by encryption.</translation>
    </message>
    <message id="IDUS_ORM_SM_OTHER_MANAGED">
        <source>Encryption is managed elsewhere</source>
        <translation>Encryption is managed elsewhere</translation>
    </message>
    <message id="IDUS_ORM_SM_OTHER_MANAGED_DESC">
        <source>The encryption of this disk was not set up by this program, so it cannot be managed here. Please contact your administrator.</source>
        <translation>The encryption of this disk was not set up by this program, so it cannot be managed here. Please contact your administrator.</translation>
    </message>
    <message id="IDUS_ORM_SM_PERCENT_FMT">
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message id="IDUS_ORM_SM_SYNC">
        <source>Synchronization</source>
        <translation>Synchronization</translation>
    </message>
    <message id="IDUS_ORM_SM_SYNC_ISSUE">
        <source>The last synchronization with the management server did not succeed. If trying again does not help, check your network connection or contact your administrator.
&lt;A TYPE="COMMAND" COMMAND="RETRY-SYNC" TITLE"&gt;Try again&lt;/A&gt;</source>
        <translation>The last synchronization with the management server did not succeed. If trying again does not help, check your network connection or contact your administrator.
&lt;A TYPE="COMMAND" COMMAND="RETRY-SYNC" TITLE"&gt;Try again&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ORM_SM_SYNC_ACTIVE">
        <source>This computer is exchanging its settings with the management server. There is nothing for you to do.</source>
        <translation>This computer is exchanging its settings with the management server. There is nothing for you to do.</translation>
    </message>

    <!-- Captions of command links -->
    <message id="IDUS_LINK_RETRY_SYNC">
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message id="IDUS_LINK_ENTER_PASSWORD_DIALOG">
        <source>Enter your password</source>
        <translation>Enter your password</translation>
    </message>
    <message id="IDUS_LINK_SHOW_ENTER_PASSWORD_DIALOG">
        <source>Show the password window</source>
        <translation>Show the password window</translation>
    </message>

    <!-- Alerts; the communication text is also a status message, so it carries a link -->
    <message id="IDUS_ALERT_TITLE_COMMS">
        <source>The encryption service is not answering</source>
        <translation>The encryption service is not answering</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_COMMS">
        <source>The service that looks after the encryption of this computer could not be reached. If trying again does not help, restart the computer or contact your administrator.
&lt;A TYPE="COMMAND" COMMAND="RETRY-COMMS" TITLE"&gt;Try again&lt;/A&gt;</source>
        <translation>The service that looks after the encryption of this computer could not be reached. If trying again does not help, restart the computer or contact your administrator.
&lt;A TYPE="COMMAND" COMMAND="RETRY-COMMS" TITLE"&gt;Try again&lt;/A&gt;</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PROXYSYNC_GENERIC_TITLE">
        <source>Synchronization did not succeed</source>
        <translation>Synchronization did not succeed</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PROXYSYNC_PROBLEM">
        <source>The settings of this computer could not be exchanged with the management server. Check your network connection and try again later. If that does not help, contact your administrator.</source>
        <translation>The settings of this computer could not be exchanged with the management server. Check your network connection and try again later. If that does not help, contact your administrator.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_WARNING">
        <source>Enter your password later?</source>
        <translation>Enter your password later?</translation>
    </message>
    <message id="IDUS_ALERT_WARNING_PASSWORD_POSTPONE_ENC">
        <source>Until then your disk stays unencrypted and your data unprotected. You can enter it at any time in the main window.</source>
        <translation>Until then your disk stays unencrypted and your data unprotected. You can enter it at any time in the main window.</translation>
    </message>
    <message id="IDUS_ALERT_WARNING_PASSWORD_POSTPONE_DEC">
        <source>Until then your disk stays encrypted. You can enter it at any time in the main window.</source>
        <translation>Until then your disk stays encrypted. You can enter it at any time in the main window.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_FAILURE">
        <source>Your password could not be used</source>
        <translation>Your password could not be used</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PASSWORD_FAILURE">
        <source>You typed your password correctly, but the encryption service did not accept it. Please try again. If that does not help, contact your administrator.</source>
        <translation>You typed your password correctly, but the encryption service did not accept it. Please try again. If that does not help, contact your administrator.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_VALIDATION">
        <source>The password was not accepted</source>
        <translation>The password was not accepted</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PASSWORD_VALIDATION">
        <source>Check that Caps Lock is off, then type the password again that you use to log in to this computer.</source>
        <translation>Check that Caps Lock is off, then type the password again that you use to log in to this computer.</translation>
    </message>
    <message id="IDUS_ALERT_TITLE_PASSWORD_UNCHECKED">
        <source>Your password could not be checked</source>
        <translation>Your password could not be checked</translation>
    </message>
    <message id="IDUS_ALERT_ERROR_PASSWORD_UNCHECKED">
        <source>This computer cannot check passwords right now. Please try again in a moment. If that does not help, contact your administrator.</source>
        <translation>This computer cannot check passwords right now. Please try again in a moment. If that does not help, contact your administrator.</translation>
    </message>

    <!-- Password dialog and buttons -->
    <message id="IDUS_PASSWORDDIALOG_TITLE">
        <source>Enter password</source>
        <translation>Enter password</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_MESSAGE_ENC">
        <source>Enter the password that you use to log in to this computer. Encryption then starts, and you can keep working.</source>
        <translation>Enter the password that you use to log in to this computer. Encryption then starts, and you can keep working.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_MESSAGE_DEC">
        <source>Enter the password that you use to log in to this computer. Decryption then starts, and you can keep working.</source>
        <translation>Enter the password that you use to log in to this computer. Decryption then starts, and you can keep working.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_USERNAME">
        <source>User name:</source>
        <translation>User name:</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_PASSWORD">
        <source>Password:</source>
        <translation>Password:</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_MOVE_IN">
        <source>Click here or press Tab to type your password.</source>
        <translation>Click here or press Tab to type your password.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_CAPS_LOCK">
        <source>Caps Lock is on.</source>
        <translation>Caps Lock is on.</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_CHECKING">
        <source>Checking your password…</source>
        <translation>Checking your password…</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_REFUSED">
        <source>Not added: the password would become too long or hold characters that it cannot have.</source>
        <translation>Not added: the password would become too long or hold characters that it cannot have.</translation>
    </message>
    <message id="IDUS_BUTTON_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="IDUS_BUTTON_CANCEL">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="IDUS_BUTTON_POSTPONE">
        <source>Later</source>
        <translation>Later</translation>
    </message>
    <message id="IDUS_BUTTON_SHOW_PASSWORD">
        <source>Show</source>
        <translation>Show</translation>
    </message>
    <message id="IDUS_BUTTON_HIDE_PASSWORD">
        <source>Hide</source>
        <translation>Hide</translation>
    </message>
    <message id="IDUS_BUTTON_HELP">
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message id="IDUS_BUTTON_COPY">
        <source>Copy</source>
        <translation>Copy</translation>
    </message>

    <!-- Main window, tray item and its menu -->
    <message id="IDUS_PRODUCT_DISPLAY_NAME">
        <source>Disk Encryption Agent</source>
        <translation>Disk Encryption Agent</translation>
    </message>
    <message id="IDUS_MGUI_STATUS_TITLE_GREEN">
        <source>No problems reported</source>
        <translation>No problems reported</translation>
    </message>
    <message id="IDUS_MGUI_STATUS_TITLE_YELLOW">
        <source>Please read the messages</source>
        <translation>Please read the messages</translation>
    </message>
    <message id="IDUS_MGUI_STATUS_TITLE_RED">
        <source>Your attention is needed</source>
        <translation>Your attention is needed</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_PROTECTION_STATUS">
        <source>Protection status</source>
        <translation>Protection status</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_ABOUT">
        <source>About</source>
        <translation>About</translation>
    </message>
    <message id="IDUS_MGUI_MENUBAR_OPEN_ORM">
        <source>Open window</source>
        <translation>Open window</translation>
    </message>
    <message id="IDUS_MGUI_MENUBAR_HIDE_ORM">
        <source>Hide window</source>
        <translation>Hide window</translation>
    </message>
    <message id="IDUS_MGUI_MENUBAR_PROXYSYNC_ORM">
        <source>Synchronize now</source>
        <translation>Synchronize now</translation>
    </message>

    <!-- About page; a label ends with a blank, because its value follows directly -->
    <message id="IDUS_MGUI_ABOUT">
        <source>About this program</source>
        <translation>About this program</translation>
    </message>
    <message id="IDUS_MGUI_PRODUCT_NAME">
        <source>Product: </source>
        <translation>Product: </translation>
    </message>
    <message id="IDUS_MGUI_PRODUCT_VERSION">
        <source>Version: </source>
        <translation>Version: </translation>
    </message>
    <message id="IDUS_MGUI_AGENT_VERSION">
        <source>Agent version: </source>
        <translation>Agent version: </translation>
    </message>
    <message id="IDUS_MGUI_COMPUTER_NAME">
        <source>Computer name: </source>
        <translation>Computer name: </translation>
    </message>
    <message id="IDUS_MGUI_OPERATING_SYSTEM">
        <source>Operating system: </source>
        <translation>Operating system: </translation>
    </message>
    <message id="IDUS_MGUI_MACHINE">
        <source>Processor: </source>
        <translation>Processor: </translation>
    </message>
    <message id="IDUS_MGUI_LAST_SYNC">
        <source>Last synchronization: </source>
        <translation>Last synchronization: </translation>
    </message>
    <message id="IDUS_MGUI_LAST_SYNC_ACTIVE">
        <source>Running now</source>
        <translation>Running now</translation>
    </message>
    <message id="IDUS_MGUI_LAST_SYNC_BLOCKED">
        <source>Waiting until the disk is prepared</source>
        <translation>Waiting until the disk is prepared</translation>
    </message>
    <message id="IDUS_UNKNOWN">
        <source>Unknown</source>
        <translation>Unknown</translation>
    </message>
    <message id="IDUS_MGUI_COPYRIGHT_WARNING_FIRST_PART_ORM">
        <source>Copyright © 2026 the authors of this program.</source>
        <translation>Copyright © 2026 the authors of this program.</translation>
    </message>
    <message id="IDUS_MGUI_COPYRIGHT_WARNING_SECOND_PART_ORM">
        <source>This program is free software under the Apache License, version 2.0.</source>
        <translation>This program is free software under the Apache License, version 2.0.</translation>
    </message>
    <message id="IDUS_MGUI_COPYRIGHT_WARNING_THIRD_PART_ORM">
        <source>It comes without any warranty, as far as the law permits.</source>
        <translation>It comes without any warranty, as far as the law permits.</translation>
    </message>

    <!-- Counter beside a menu row, for assistive technology; read as "3, status: warning" -->
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE">
        <source>status:</source>
        <translation>status:</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_OK">
        <source>in order</source>
        <translation>in order</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_WARNING">
        <source>warning</source>
        <translation>warning</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_ERROR">
        <source>problem</source>
        <translation>problem</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_STATE_INFO">
        <source>information</source>
        <translation>information</translation>
    </message>
    <message id="IDUS_MGUI_LEFT_MENU_COUNTER_ACC_VALUE_DESC">
        <source>message counter</source>
        <translation>message counter</translation>
    </message>
    <message id="IDUS_MGUI_PROTECTION_STATUS_INDICATOR_ACC_HELP">
        <source>Opens the messages about the protection of your data; the number says how many there are.</source>
        <translation>Opens the messages about the protection of your data; the number says how many there are.</translation>
    </message>
    <message id="IDUS_MGUI_ABOUT_INDICATOR_ACC_HELP">
        <source>Opens what there is to know about this program and this computer.</source>
        <translation>Opens what there is to know about this program and this computer.</translation>
    </message>

    <!-- Desktop notifications, and what stands beside texts: the support, and when a prompt comes back, as "in 60 minutes" -->
    <message id="IDUS_PASSWORDDIALOG_HEADING_ENC">
        <source>Encrypt this disk</source>
        <translation>Encrypt this disk</translation>
    </message>
    <message id="IDUS_PASSWORDDIALOG_HEADING_DEC">
        <source>Decrypt this disk</source>
        <translation>Decrypt this disk</translation>
    </message>
    <message id="IDUS_BUTTON_START_ENC">
        <source>Start encryption</source>
        <translation>Start encryption</translation>
    </message>
    <message id="IDUS_BUTTON_START_DEC">
        <source>Start decryption</source>
        <translation>Start decryption</translation>
    </message>
    <message id="IDUS_MGUI_NOTHING_TO_DO">
        <source>There is nothing for you to do</source>
        <translation>There is nothing for you to do</translation>
    </message>
    <message id="IDUS_MGUI_NOTHING_TO_DO_DESC">
        <source>A message appears here if your disk or the synchronization needs you.</source>
        <translation>A message appears here if your disk or the synchronization needs you.</translation>
    </message>
    <message id="IDUS_MGUI_CARD_COMPUTER">
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message id="IDUS_MGUI_CARD_LAST_SYNC">
        <source>Last synchronization</source>
        <translation>Last synchronization</translation>
    </message>
    <message id="IDUS_MGUI_TAGLINE">
        <source>Managed by your administrator</source>
        <translation>Managed by your administrator</translation>
    </message>
    <message id="IDUS_ALERT_ASKED_AGAIN">
        <source>We will ask again %1.</source>
        <translation>We will ask again %1.</translation>
    </message>
    <message id="IDUS_SUPPORT_CONTACT">
        <source>Support: %1</source>
        <translation>Support: %1</translation>
    </message>
    <message id="IDUS_NOTICE_ENCRYPTED">
        <source>Your disk is encrypted</source>
        <translation>Your disk is encrypted</translation>
    </message>
    <message id="IDUS_NOTICE_ENCRYPTED_DESC">
        <source>Encryption has finished. Your data is now fully protected.</source>
        <translation>Encryption has finished. Your data is now fully protected.</translation>
    </message>
    <message id="IDUS_NOTICE_DECRYPTED">
        <source>Your disk is decrypted</source>
        <translation>Your disk is decrypted</translation>
    </message>
    <message id="IDUS_NOTICE_DECRYPTED_DESC">
        <source>Decryption has finished. Your data is no longer protected by encryption.</source>
        <translation>Decryption has finished. Your data is no longer protected by encryption.</translation>
    </message>
    <message id="IDUS_NOTICE_NO_TRAY">
        <source>Disk encryption is looked after here</source>
        <translation>Disk encryption is looked after here</translation>
    </message>
    <message id="IDUS_NOTICE_NO_TRAY_DESC">
        <source>This desktop has no place for the status icon. To see the state of your disk, open “Disk Encryption Agent” from your applications.</source>
        <translation>This desktop has no place for the status icon. To see the state of your disk, open “Disk Encryption Agent” from your applications.</translation>
    </message>
    <message id="IDUS_DESKTOP_GENERIC_NAME">
        <source>Disk encryption status</source>
        <translation>Disk encryption status</translation>
    </message>
    <message id="IDUS_DESKTOP_COMMENT">
        <source>Shows the state of this computer's disk encryption</source>
        <translation>Shows the state of this computer's disk encryption</translation>
    </message>
    <message id="IDUS_DESKTOP_KEYWORDS">
        <source>encryption, disk, security, password, tray</source>
        <translation>encryption, disk, security, password, tray</translation>
    </message>
    <message id="IDUS_METAINFO_DESCRIPTION">
        <source>The agent sits in the tray of each login session and shows whether the disk of this computer is encrypted. It says what is wrong and what to do, asks for the account password when the encryption service needs it, and starts a synchronisation with the management server.</source>
        <translation>The agent sits in the tray of each login session and shows whether the disk of this computer is encrypted. It says what is wrong and what to do, asks for the account password when the encryption service needs it, and starts a synchronisation with the management server.</translation>
    </message>
</context>
</TS>
