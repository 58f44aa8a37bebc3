#!/bin/bash
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
#
# usage: in_own_tmp.sh <command>...
#
# The sockets of agent and service have fixed paths in /tmp. With one of its own a test needs not wait for the others;
# where the system does not allow that, or the project itself is in /tmp, the desktops wait for each other.
if [[ $PWD/ != /tmp/* ]] && unshare --mount true 2>/dev/null; then
    # shellcheck disable=SC2016  # for the inner shell
    exec unshare --mount bash -c 'mount -t tmpfs -o mode=1777 tmpfs /tmp && exec "$@"' "$0" "$@"
fi
exec "$@"
