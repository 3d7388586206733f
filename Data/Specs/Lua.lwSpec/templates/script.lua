local function main(...)
end

main(...)
