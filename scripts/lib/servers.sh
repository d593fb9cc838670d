# Servers of HTTP on free ports of the loopback interface, for as long as a script runs. Sourced, never run; needs
# common.sh, and $scratch, a folder of the script's own. The script calls stop_servers when it ends.

# Debian puts servers where only administrators look for programs.
PATH=$PATH:/usr/sbin
servers=()

stop_servers() {
    [ ${#servers[@]} = 0 ] || kill "${servers[@]}" 2>/dev/null || true
    wait
}

# free_ports COUNT: prints them in one line.
free_ports() {
    python3 - "$1" <<'END'
import socket, sys
sockets = [socket.create_server(("127.0.0.1", 0)) for _ in range(int(sys.argv[1]))]
print(*(open_socket.getsockname()[1] for open_socket in sockets))
END
}

# start_server NAME PORT COMMAND...
start_server() {
    "${@:3}" >"$scratch/$1.log" 2>&1 &
    servers+=($!)
    for _ in $(seq 100); do
        ! (: <>"/dev/tcp/127.0.0.1/$2") 2>/dev/null || return 0
        sleep 0.1
    done
    cat "$scratch/$1.log" >&2
    die "$1 does not answer"
}

# start_nginx PORT: with the blocks of servers that standard input holds, of which one listens on the port. Requests
# are noted in $scratch/nginx/requests. The processes that serve may run as another user.
start_nginx() {
    mkdir -p "$scratch/nginx"
    chmod 755 "$scratch"
    cat - >"$scratch/nginx/servers.conf"
    cat >"$scratch/nginx/nginx.conf" <<END
daemon off;
pid $scratch/nginx/pid;
events {}
http {
    log_format request '\$request_uri';
    access_log $scratch/nginx/requests request;
    client_body_temp_path $scratch/nginx/client;
    proxy_temp_path $scratch/nginx/proxy;
    fastcgi_temp_path $scratch/nginx/fastcgi;
    uwsgi_temp_path $scratch/nginx/uwsgi;
    scgi_temp_path $scratch/nginx/scgi;
    sendfile on;
    absolute_redirect off;
    include $scratch/nginx/servers.conf;
}
END
    start_server nginx "$1" nginx -p "$scratch/nginx" -c "$scratch/nginx/nginx.conf" -e "$scratch/nginx/errors"
}
