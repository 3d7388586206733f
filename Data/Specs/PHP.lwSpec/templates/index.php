<?php
declare(strict_types=1);

function main(): void
{
}

main();
