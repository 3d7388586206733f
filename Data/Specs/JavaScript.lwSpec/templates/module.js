'use strict';

function main() {
}

main();
